       01 a identified by "a" namespace is "urn:a".
        02 y PIC X(80) identified by "y".

