       01  TEXTS.
           05  A                   PIC X(10).
           05  B                   PIC X(10) DISPLAY.
           05  C                   PIC A(5).
           05  D                   PIC XXBXX.
           05  E                   PIC X(3) VALUE "yes".
           05  F                   PIC N(4).
           05  G                   PIC N(4) NATIONAL.
           05  H                   PIC G(4) DISPLAY-1.
           05  I                   PIC 9(4) NATIONAL.
           05  J                   PIC 1(8) BIT.
