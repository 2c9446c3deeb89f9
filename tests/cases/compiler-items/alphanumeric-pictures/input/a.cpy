       01  REC.
           05  A                   PIC X.
           05  B                   PIC X(5).
           05  C                   PIC XXX.
           05  D                   PIC A(3).
           05  E                   PIC 9X.
           05  F                   PIC A9(2).
