       01 rec identified by "rec" count in rec-count.
        02 a identified by "a" count in a-count.
         88 enumerator-0 value is "RED".
         88 enumerator-1 value is "BLUE".
         03 a-value PIC X(80) count in a-value-count.
        02 b identified by "b" count in b-count.
         88 enumerator-0-1 value is "RED".
         88 enumerator-1-1 value is "BLUE".
         03 b-value PIC X(80) count in b-value-count.

