           TITLE 'Records of the day'.
       01  REC.
           EJECT
           05  A                   PIC X.
           SKIP1.
           SKIP2
           05  B                   PIC X(2).
           SKIP3.
           EJECT.
           TITLE "More of them"
           05  TITLE               PIC X(3).
           05  SKIP1               PIC X(4).
