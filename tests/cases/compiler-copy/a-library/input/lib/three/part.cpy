           05  D                   PIC X(4).
