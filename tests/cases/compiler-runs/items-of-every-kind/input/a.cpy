       01  REC.
           05  A                   PIC S9(4) SIGN TRAILING.
           05  B                   PIC S9(4) SIGN LEADING.
           05  C                   PIC X(3) JUST.
           05  D                   PIC 9(3) BLANK WHEN ZERO.
           05  E                   PIC N(4).
           05  F                   COMP-2.
           05  G                   POINTER.
           05  H                   PIC 9(4) COMP-X.
           05  I                   PIC ZZ9.99.
           05  J                   PIC 9(3)PP.
           05  K                   INDEX.
           05  L                   PIC S9V9 VALUE -1.5.
           05  M                   PIC X(3) VALUE ZEROS.
           05  N                   PIC X(2)BX.
