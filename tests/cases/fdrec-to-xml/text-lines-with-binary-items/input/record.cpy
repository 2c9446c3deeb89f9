       01  R.
           05  A PIC X.
           05  B PIC 9(3) COMP-3.
