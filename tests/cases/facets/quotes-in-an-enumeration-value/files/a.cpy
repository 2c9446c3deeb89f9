       01 word identified by "word".
        88 enumerator-0 value is "say "hi"".
        88 enumerator-1 value is "it's".
        88 enumerator-2 value is "a  b".
        88 enumerator-3 value is "c d".
        88 enumerator-4 value is "<&>".
        02 word-value PIC X(80).

