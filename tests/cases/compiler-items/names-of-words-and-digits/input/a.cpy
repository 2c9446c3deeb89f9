       01  1ST-REC.
           05  2-B                 PIC X.
           05  C_3                 PIC X(2).
           05  4D                  PIC X(3).
