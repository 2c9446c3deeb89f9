       01  A                       PIC X.
       01  FILLER                  PIC X.
       01  a                       PIC X(2).
       01  FILLER                  PIC X.
       01  B.
           05  A                   PIC X.
           05  A                   PIC X.
       77  B                       PIC X.
