       01  REC.
           05  A                   PIC X(5) JUSTIFIED.
           05  B                   PIC A(4) JUSTIFIED RIGHT.
           05  C                   JUST RIGHT PIC X(3) VALUE "c".
           05  D                   PIC X(2) JUST OCCURS 3.
