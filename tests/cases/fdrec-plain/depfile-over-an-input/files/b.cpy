       01 A.
           02 B PIC X.
