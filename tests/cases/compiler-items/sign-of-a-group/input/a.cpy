       01  REC                     SIGN LEADING SEPARATE.
           05  A                   PIC S9(3).
           05  B                   PIC 9(3).
           05  C                   PIC S9(3) COMP-3.
           05  D                   PIC X(3).
           05  G                   SIGN TRAILING.
               10  E               PIC S9(3).
               10  F               PIC S9(3) SIGN TRAILING SEPARATE.
