       01  A IS EXTERNAL           PIC X.
       01  B                       EXTERNAL.
           05  C                   PIC X(2).
       01  D                       PIC X(3) IS GLOBAL VALUE "d".
       01  E                       GLOBAL PIC X(4).
