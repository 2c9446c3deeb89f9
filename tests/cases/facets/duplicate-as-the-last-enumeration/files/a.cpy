       01 grade identified by "grade".
        88 enumerator-0 value is "A".
        02 grade-value PIC X(80).

