       01  A.
           05  FILLER PIC X.
