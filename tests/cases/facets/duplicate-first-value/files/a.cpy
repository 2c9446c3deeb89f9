       01 grade identified by "grade".
        88 enumerator-0 value is "A".
        88 enumerator-1 value is "B".
        88 enumerator-2 value is "C".
        88 enumerator-3 value is "D".
        02 grade-value PIC X(80).

