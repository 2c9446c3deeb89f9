       01  REC.
           05  A                   PIC N(4) VALUE N"ab".
           05  B  PIC N(3) USAGE NATIONAL VALUE NX"004100E4".
           05  C                   PIC NNBN.
           05  D                   PIC G(2) DISPLAY-1.
           05  E                   PIC 9(3) USAGE NATIONAL.
