       01  REC.
           05  A                   VALUE -5 OCCURS 2 TIMES SIGN LEADING
                                   SEPARATE PIC S9(3) USAGE DISPLAY.
           05  B                   PIC X(4).
           05  C                   OCCURS 2 JUST VALUE "c" PIC X(2)
                                   REDEFINES B.
           05  D                   SYNC COMP VALUE 1 PIC 9(4).
