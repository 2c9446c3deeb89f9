       01  REC.
           05  A                   PIC X OCCURS 5.
           05  B  PIC X(2) OCCURS 5 TIMES INDEXED BY I-B, J-B.
           05  T                   OCCURS 4 TIMES
               ASCENDING KEY IS K1 K2 DESCENDING K3 OF T
               INDEXED I-T.
               10  K1              PIC 9.
               10  K2              PIC 9.
               10  K3              PIC 9.
           05  C                   PIC X(3) OCCURS 1 TIMES.
           05  G                   OCCURS 2.
               10  H               OCCURS 3.
                   15  I-1         PIC X(2).
