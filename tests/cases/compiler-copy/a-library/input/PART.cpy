           05  C                   PIC X(3).
