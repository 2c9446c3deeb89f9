       01  A                       PIC é.
      é01  B                       PIC X.
       01  C                       PIC X(é2).
