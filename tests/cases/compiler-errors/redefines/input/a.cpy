       01  REC.
           05  A                   PIC X(4).
           05  B                   PIC X(4).
           05  C REDEFINES A       PIC X(4).
           05  D                   PIC X OCCURS 4.
           05  E REDEFINES D       PIC X(4).
           05  F.
               10  G REDEFINES F   PIC X.
               10  H               PIC X.
           05  I REDEFINES H       PIC X.
           05  J REDEFINES NOWHERE PIC X.
           05  K REDEFINES K       PIC X.
           05  L                   PIC X.
               88  L-1             VALUE "l".
           05  M REDEFINES L       PIC X.
           05  N REDEFINES M       PIC X.
       01  O REDEFINES REC         PIC X.
       01  P REDEFINES A           PIC X.
