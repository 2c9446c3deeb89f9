       01 color PIC X(4) identified by "color".
        88 enumerator-0 value is "RED".
        88 enumerator-1 value is "BLUE".

