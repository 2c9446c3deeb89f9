           05  F                   PIC X(4).
