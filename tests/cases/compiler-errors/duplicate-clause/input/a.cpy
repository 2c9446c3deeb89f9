       01  REC.
           05  A                   PIC X PICTURE X.
           05  B                   PIC 9 COMP USAGE DISPLAY.
           05  C                   PIC X OCCURS 2 OCCURS 3.
           05  D                   PIC X VALUE "a" VALUE "b".
           05  E                   PIC X JUST JUSTIFIED RIGHT.
           05  F                   PIC 9 BLANK ZERO BLANK WHEN ZERO.
           05  G                   PIC S9 LEADING SIGN TRAILING.
           05  H                   PIC 9 COMP SYNC SYNCHRONIZED.
           05  I REDEFINES H REDEFINES H PIC X.
       01  J EXTERNAL GLOBAL EXTERNAL PIC X.
