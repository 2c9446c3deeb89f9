       01  REC.
           05  A                   PIC X.
           EXEC SQL
               SELECT B INTO C.
           05  D                   PIC Q.
