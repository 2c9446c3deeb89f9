>>SOURCE FORMAT FIXED
000100     05  B                   PIC X(2).
