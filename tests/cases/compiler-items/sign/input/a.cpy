       01  REC.
           05  A                   PIC S9(3).
           05  B                   PIC S9(3) SIGN LEADING.
           05  C                   PIC S9(3) SIGN IS TRAILING.
           05  D                   PIC S9(3) SIGN IS LEADING SEPARATE.
           05  E          PIC S9(3) TRAILING SEPARATE CHARACTER.
           05  F                   LEADING PIC S9(3)V9 OCCURS 2.
