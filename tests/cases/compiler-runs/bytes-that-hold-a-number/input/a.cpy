       01  REC.
           05  A                   PIC X(2) COMP-5 VALUE 7.
