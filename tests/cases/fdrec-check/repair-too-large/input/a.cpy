       01  A.
           05  B PIC 999 OCCURS 5.
