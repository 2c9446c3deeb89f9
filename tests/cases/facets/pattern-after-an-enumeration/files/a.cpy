       01 c PIC X(80) identified by "c".
        88 enumerator-0 value is "A".

