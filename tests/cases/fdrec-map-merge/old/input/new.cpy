       01  A.
           05  B PIC 9(4).
           05  C PIC 9(4).
