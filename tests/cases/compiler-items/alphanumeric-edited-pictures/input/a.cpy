       01  REC.
           05  A                   PIC X(3)BX(2).
           05  B                   PIC XX/XX/XX.
           05  C                   PIC X0(2)9.
           05  D                   PIC A(3)BA.
