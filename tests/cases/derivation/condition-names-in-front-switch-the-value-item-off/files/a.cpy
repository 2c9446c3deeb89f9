       01 paint PIC X(3) identified by "paint".
        88 enumerator-0 value is "RED".
        02 gloss PIC X(80) identified by "gloss" is attribute.

