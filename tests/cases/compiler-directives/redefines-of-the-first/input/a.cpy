       01  R.
           05  A PIC X(8).
           05  B REDEFINES A.
               10  B-1 PIC X(2).
               10  B-2 REDEFINES B-1 PIC 99.
           05  C REDEFINES A PIC X(4).
           05  D PIC X.
