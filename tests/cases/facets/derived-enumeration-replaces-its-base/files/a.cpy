       01 c identified by "c".
        02 c-value PIC X(80).
        88 enumerator-1 value is "RED".
        88 enumerator-2 value is "BLUE".

