       01  A                       PIC 9(2) VALUE 123.
       01  B                       PIC 9(2)V9 VALUE 12.345.
       01  C                       PIC 9(3) VALUE 00012.
       01  D                       PIC S9(2) VALUE -99.
       01  E                       PIC 9(2)PP VALUE 1200.
       01  F                       PIC 9(2) VALUE -1.
       01  G                       PIC S9(3)V99 COMP-3 VALUE 1000.
       01  H                       PIC 9(2) COMP-5 VALUE 200.
