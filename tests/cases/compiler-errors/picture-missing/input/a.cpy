       01  A.
       01  B                       VALUE "b".
       01  REC.
           05  C                   USAGE COMP.
           05  D                   OCCURS 2.
           05  .
           05  E                   PIC X.
           05  F                   REDEFINES E.
           05  G                   COMP-1.
       01  H                       COMP-3.
           05  I                   PIC 9.
           05  J.
