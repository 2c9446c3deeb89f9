       01  R.
           05  N PIC 9.
           05  T OCCURS 0 TO 3 DEPENDING ON N PIC S9(3) COMP-3.
           05  Z PIC X.
