       01  REC.
           05  A                   PIC X COMP-X.
           05  B                   PIC X(2) COMP-5.
           05  C                   PIC X(4) COMP-5 VALUE 12.
           05  D                   PIC X(3) COMP-X.
