           05  CODE-1              PIC X(3).
