       01  REC.
           05  A                   PIC X.
           05  B                   PIC S9(9) COMP SYNC.
