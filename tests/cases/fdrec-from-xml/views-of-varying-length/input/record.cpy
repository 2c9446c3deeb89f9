       01  R.
           05  K PIC X.
           05  A PIC X(2).
           05  B REDEFINES A PIC 9(5).
