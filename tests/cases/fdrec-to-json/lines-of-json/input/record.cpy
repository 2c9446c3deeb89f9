       01  R.
           05  A PIC X(2).
           05  T OCCURS 2 PIC 9V9.
