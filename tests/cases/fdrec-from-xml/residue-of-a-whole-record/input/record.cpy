       01  R IDENTIFIED BY "r".
           05  N PIC 9 IDENTIFIED BY "n".
           05  T PIC X OCCURS 0 TO 3 DEPENDING ON N
               IDENTIFIED BY "t" COUNT IN T-COUNT.
