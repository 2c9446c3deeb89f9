       01  REC.
           05  A                   PIC X(8).
           05  B REDEFINES A       PIC 9(8).
           05  C REDEFINES A.
               10  C1              PIC X(4).
               10  C2 REDEFINES C1 PIC 9(4).
               10  C3              PIC X.
           05  FILLER REDEFINES B  PIC X(3) OCCURS 2.
           05  REDEFINES A         PIC X(2).
           05  D                   PIC X.
       01  REC-2 REDEFINES REC.
           05  E                   PIC X(9).
