      * fdrec: unbounded 2000000000
       01 A.
           05 B PIC 999 OCCURS 2000000000 TIMES.
