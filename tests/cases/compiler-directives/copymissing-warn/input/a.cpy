       01  R.
           05  A PIC X.
           05  B.
               COPY NONE.
