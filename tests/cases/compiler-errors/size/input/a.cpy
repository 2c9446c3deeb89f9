       01  A                       PIC X(2147483647).
       01  B                       PIC X(2147483647) OCCURS 2.
       01  C.
           05  D                   OCCURS 65536.
               10  E               PIC X(32768).
       01  F.
           05  G                   PIC X(1073741824).
           05  H                   PIC X(1073741824).
       01  I                       PIC N(1073741824).
       01  J                       PIC X(2147483648).
