       01  R.
           05  A PIC X.
