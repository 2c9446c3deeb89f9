       01 a identified by "a".
        02 x PIC X(80) identified by "x" namespace is "urn:b".

