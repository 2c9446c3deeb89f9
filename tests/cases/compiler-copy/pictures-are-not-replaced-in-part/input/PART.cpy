       01  REC.
           05  X                   PIC X.
           05  B                   PIC X(N).
           05  C                   PIC 9.
           05  D                   PIC 9V9.
