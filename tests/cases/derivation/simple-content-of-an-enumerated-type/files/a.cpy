       01 paint identified by "paint".
        88 enumerator-0 value is "RED".
        88 enumerator-1 value is "BLUE".
        02 paint-value PIC X(80).
        02 gloss PIC X(80) identified by "gloss" is attribute.

