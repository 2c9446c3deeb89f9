       01  REC.
           05  CODE-1              PIC X(4).
