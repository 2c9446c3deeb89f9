       01  R.
           05  A PIC X VALUE "a".
               88  A-YES VALUE "y".
           05  B PIC 9 VALUE 1.
               88  B-SOME VALUE 1 THRU 3.
