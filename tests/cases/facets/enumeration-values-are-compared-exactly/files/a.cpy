       01 word identified by "word".
        88 enumerator-0 value is "on".
        88 enumerator-1 value is "On".
        88 enumerator-2 value is "on ".
        02 word-value PIC X(80).

