       01  REC.
           COPY NOWHERE.
           05  A                   PIC X.
           COPY PART OF LIB.
