           05  CODE-2              PIC X(5).
