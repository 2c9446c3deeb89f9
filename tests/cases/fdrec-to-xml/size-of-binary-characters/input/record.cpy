       01  R.
           05  FILLER PIC X(9) COMP-X.
           05  A PIC X.
