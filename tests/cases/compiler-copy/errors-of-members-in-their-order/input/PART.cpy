           05  A                   PIC Q.
