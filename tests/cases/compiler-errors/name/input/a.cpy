       01  REC.
           05  A                   PIC X.
           05  B                   PIC X.
           05  -C                  PIC X.
           05  D-                  PIC X.
           05  _E                  PIC X.
           05  12-3                PIC X.
           05  G                   PIC X OCCURS 2 INDEXED BY.
           05  H REDEFINES         PIC X.
