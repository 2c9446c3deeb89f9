       01  A                       PIC X(3) VALUE "abcd".
       01  B                       PIC X(3) VALUE "äöü".
       01  C                       PIC 9(3) VALUE "12".
       01  D                       PIC X(2) VALUE X"414243".
       01  E                       PIC X(3) VALUE ALL "abcd".
       01  F                       PIC N(2) VALUE N"abc".
       01  G                       PIC X(2) VALUE "a""b".
       01  H                       PIC X(2) VALUE "a""".
