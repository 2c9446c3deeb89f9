       01  NUMBERS.
           05  A                   PIC S9(5)V99.
           05  B                   PIC S9(4) COMP.
           05  C                   PIC S9(9) COMP-4.
           05  D                   PIC 9(9)V9 BINARY.
           05  E                   PIC S9(9) COMP-5.
           05  F                   PIC S9(7)V99 COMP-3.
           05  G                   PIC 9(5) PACKED-DECIMAL.
           05  H                   PIC 9(4) COMP-6.
           05  I                   PIC 9(4) COMP-N.
           05  J                   PIC 9(4) COMP-X.
           05  K                   COMP-1.
           05  L                   COMP-2.
