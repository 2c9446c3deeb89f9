       01  A.
           05  B PIC X(4).
           05  C PIC X(4).
           05  D PIC X.
