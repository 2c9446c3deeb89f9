           05  A                   PIC X.
           05  B                   PIC X PIC X.
