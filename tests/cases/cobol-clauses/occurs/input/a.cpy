       01  REC.
           05  RATE                PIC 9(3) OCCURS 12 TIMES.
           05  ROWS                PIC 9(2).
           05  ROW OCCURS 1 TO 50 TIMES DEPENDING ON ROWS
                   ASCENDING KEY IS SKU INDEXED BY ROW-X.
               10  SKU             PIC X(8).
