       01  REC IS EXTERNAL AS "shared" VOLATILE.
           05  A                   PIC X.
       01  OTHER IS GLOBAL BASED.
           05  B                   PIC X.
