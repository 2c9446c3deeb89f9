       01 A PIC X.
       01 B PIC X.
