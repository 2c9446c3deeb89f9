       01  REC.
           05  A                   PIC X.
           05  B                   PIC S9(4) COMP SYNC.
           05  C                   PIC X.
           05  D                   PIC S9(9) BINARY SYNCHRONIZED RIGHT.
           05  E                   PIC X.
           05  F                   COMP-2 SYNC LEFT.
           05  G                   PIC X SYNC.
           05  H                   PIC 9(3) COMP-3 SYNC.
       01  REC-2.
           05  T                   OCCURS 3.
               10  I               PIC S9(9) COMP-5 SYNC.
               10  J               PIC X.
