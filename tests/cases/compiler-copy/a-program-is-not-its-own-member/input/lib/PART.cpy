           05  A                   PIC X.
