       01  REC.
           05  A                   PIC Q.
           05  B                   PIC Q.
