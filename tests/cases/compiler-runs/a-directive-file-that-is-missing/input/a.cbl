       01  REC.
           05  A                   PIC X(2) VALUE "abc".
