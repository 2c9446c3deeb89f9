       REPLACE ==A== WITH ==B==.
       01  REC.
           05  A                   PIC X.
       REPLACE ==A== BY .
           05  C                   PIC X.
