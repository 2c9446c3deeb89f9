       01  R.
           05  N PIC 9.
           05  T OCCURS 0 TO 3 DEPENDING ON N PIC X.
           05  Z PIC X.
