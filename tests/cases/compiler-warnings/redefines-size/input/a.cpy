       01  REC.
           05  A                   PIC X(4).
           05  B REDEFINES A       PIC X(5).
           05  C REDEFINES A       OCCURS 2.
               10  D               PIC X(3).
           05  E                   PIC X.
       01  REC-2 REDEFINES REC     PIC X(8).
