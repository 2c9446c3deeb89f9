       01  GRÖSSE               PIC Q.
