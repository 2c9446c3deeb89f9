       01  REC.
           COPY PART.
           05  B                   PIC X(2).
       >>SOURCE FORMAT FREE
05 C PIC X(3).
COPY LAST.
05 E PIC X(5).
