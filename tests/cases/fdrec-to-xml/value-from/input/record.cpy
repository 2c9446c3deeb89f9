       01  R.
           05  T OCCURS 3 PIC X VALUE FROM (1) "A".
