       01 color identified by "color".
        88 enumerator-0 value is "RED".
        88 enumerator-1 value is "BLUE".
        02 color-value PIC X(80).

