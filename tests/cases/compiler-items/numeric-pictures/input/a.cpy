       01  REC.
           05  A                   PIC 9.
           05  B                   PIC 9(5).
           05  C                   PIC S9(5)V99.
           05  D                   PIC V9(3).
           05  E                   PIC 9(3)PP.
           05  F                   PIC VPP9(2).
           05  G                   PIC SPPP9.
           05  H                   PIC 99V9(2)99.
           05  I                   PICTURE IS S9(18).
           05  J                   PICTURE 9(02)V.
