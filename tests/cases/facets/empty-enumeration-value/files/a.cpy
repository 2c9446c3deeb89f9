       01 answer identified by "answer".
        88 enumerator-1 value is "Y".
        02 answer-value PIC X(80).

