       77  TOTAL                   PIC S9(9)V99 COMP-3.
       01  REC.
           05  A                   PIC X.
