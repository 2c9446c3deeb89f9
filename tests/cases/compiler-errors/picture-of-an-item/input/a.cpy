       01  A                       PIC.
       01  B                       PIC X.
           05  C                   PIC X.
           05  D                   PICTURE IS.
       01  E                       PIC X(K).
       78  K                       VALUE 3.
       01  F                       PIC X(K).
