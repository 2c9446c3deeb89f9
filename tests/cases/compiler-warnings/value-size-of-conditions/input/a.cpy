       01  A                       PIC X.
           88  A-1                 VALUE "a" "bc".
           88  A-2                 VALUE "a" THRU "zz".
       01  B                       PIC 9 COMP-3.
           88  B-1                 VALUE "x".
       01  C.
           88  C-1                 VALUE "toolong".
           05  D                   PIC X(2).
