       01  R.
           05  FILLER PIC X.
           05  filler-2 PIC X.
           05  PIC X.
           05  N PIC 9(4) COMP SYNC.
