       01  REC.
           05  A                   PIC S9(4) COMP.
           05  B                   PIC 9(5) USAGE IS BINARY.
           05  C                   PIC S9(9) COMP-4.
           05  D                   PIC 9(10) COMPUTATIONAL.
           05  E                   USAGE COMPUTATIONAL-4 PIC S9(16)V99.
           05  F                   PIC 9(2) COMP.
           05  G                   PIC S9(9) COMP-5.
           05  H                   PIC 9(5) COMP-X.
           05  I                   PIC 9(3)PP COMP.
