       01  R PIC X(2).
