       01 c PIC X(4) identified by "c".
        88 enumerator-0 value is "YES".
        88 enumerator-1 value is "NO".

