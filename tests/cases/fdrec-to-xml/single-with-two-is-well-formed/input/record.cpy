       01  R.
           05  A PIC X(2).
           05  N PIC 9(2).
