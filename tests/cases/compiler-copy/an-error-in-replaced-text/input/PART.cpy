           05  A                   PIC SIZE-A.
