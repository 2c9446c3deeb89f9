       01  R.
           05  T OCCURS 2.
               10  U OCCURS 2 PIC 9.
           05  N PIC 9.
