       01  REC.
           05  A                   PIC X(4).
           05  B REDEFINES A       PIC 9(4).
           05  C                   PIC X.
       66  R RENAMES A THRU C.
