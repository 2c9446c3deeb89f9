       01 a identified by "a".
        88 enumerator-0 value is "RED".
        02 a-value PIC X(80).

       01 b identified by "b".
        88 enumerator-0 value is "RED".
        02 b-value PIC X(80).

