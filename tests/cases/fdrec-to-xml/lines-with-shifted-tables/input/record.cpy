       01  R.
           05  N PIC 9.
           05  T PIC X OCCURS 0 TO 3 DEPENDING ON N.
           05  Z PIC X(3).
