       77  N                       PIC 9(2).
       01  HEAD.
           05  COUNTS.
               10  M               PIC 9(2) COMP.
       01  REC.
           05  .
               10  K               PIC 9(3).
           05  A  PIC X OCCURS 1 TO 5 TIMES DEPENDING ON K.
           05  B                   PIC X(2) OCCURS 0 TO 3 DEPENDING M.
           05  C                   PIC X OCCURS 4 TIMES DEPENDING ON N
               INDEXED BY I-C.
           05  G                   OCCURS 1 TO 2 DEPENDING ON K OF REC.
               10  D               PIC X(5).
