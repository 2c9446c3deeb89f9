       01 x identified by "x".
        02 x-value PIC X(80).
        02 y PIC S9(18) identified by "y".

