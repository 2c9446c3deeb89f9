       01  REC.
           05  KEPT-1              PIC X.
           REPLACE ==:P:== BY ==ONE== ==X(9)== BY ==X(2)==.
           05  :P:-A               PIC X(9).
           COPY PART.
           REPLACE ==:P:== BY ==TWO==.
           05  :P:-C               PIC X(9).
           REPLACE OFF.
           05  X                   PIC X(9).
