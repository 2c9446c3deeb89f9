       01  A                       PIC X.
       50  B                       PIC Q.
       00  C.
       010 D                       PIC X.
       67  E                       PIC X.
       99  F                       PIC X.
       01  G                       PIC Q.
