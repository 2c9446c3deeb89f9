       01  STORED.
           05  A                   PIC S9(3) SIGN LEADING.
           05  B                   PIC S9(3) SIGN LEADING SEPARATE.
           05  C                   PIC S9(3) SIGN TRAILING.
           05  D                   PIC S9(3) SIGN TRAILING SEPARATE.
           05  E                   PIC X(5) JUSTIFIED RIGHT.
           05  F                   PIC ZZ9 BLANK WHEN ZERO.
           05  G                   PIC S9V9 VALUE -1.5.
           05  H                   PIC X(3) VALUE SPACES.
