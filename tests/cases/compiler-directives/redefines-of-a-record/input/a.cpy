       01  R PIC X(8).
       01  S REDEFINES R PIC 9(4).
