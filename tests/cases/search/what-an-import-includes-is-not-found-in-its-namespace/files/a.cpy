       01 a identified by "a" namespace is "urn:a".
        02 v PIC X(80) identified by "v".

