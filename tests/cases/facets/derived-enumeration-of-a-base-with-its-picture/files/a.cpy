       01 c identified by "c".
        88 enumerator-0 value is "GREEN".
        02 c-value PIC X(5).

