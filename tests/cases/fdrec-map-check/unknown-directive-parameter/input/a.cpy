       01  A PIC X.
