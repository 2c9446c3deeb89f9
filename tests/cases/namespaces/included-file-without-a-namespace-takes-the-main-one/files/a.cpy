       01 x identified by "x" namespace is "urn:t".
        02 y PIC X(80) identified by "y".

