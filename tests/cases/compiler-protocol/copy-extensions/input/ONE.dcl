           05  B                   PIC X(2).
