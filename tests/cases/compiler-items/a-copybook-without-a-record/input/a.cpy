       05  A                       PIC X.
       05  G.
           10  B                   PIC X(2).
       05  C                       PIC X(3).
       01  REC                     PIC X(4).
