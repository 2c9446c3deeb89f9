       01  REC.
           05  A                   PIC 9(3) SIGN LEADING.
           05  B                   PIC S9(3) COMP-3 SIGN TRAILING.
           05  C                   PIC X(3) SIGN LEADING SEPARATE.
           05  D                   PIC S9(3) SIGN LEADING.
           05  G                   SIGN LEADING SEPARATE.
               10  E               PIC 9(3).
               10  F               PIC X.
