       01  REC.
           05  A                   PIC S9(7)V99 COMP-3.
           05  B                   PIC 9(4) PACKED-DECIMAL.
           05  C                   USAGE IS COMPUTATIONAL-3 PIC 9.
           05  D                   PIC 9(4) COMP-6.
           05  E                   PIC 9(5) COMP-6.
           05  F                   PIC VPP9(3) COMP-3.
