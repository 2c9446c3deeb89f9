       01  NUMBERS.
           05  A                   PIC 9(5).
           05  B                   PIC S9(5).
           05  C                   PIC S9(5)V9(3).
           05  D                   PIC 9(3)PP.
           05  E                   PIC VPP9(2).
           05  F                   PIC ZZ,ZZ9.99.
           05  G                   PIC $$$9.99CR.
           05  H                   PIC +9.99E+99.
           05  I                   PIC 9(5) BLANK WHEN ZERO.
