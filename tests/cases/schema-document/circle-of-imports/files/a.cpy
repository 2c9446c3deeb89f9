       01 a identified by "a" namespace is "urn:b".
        02 z PIC X(80) identified by "z" namespace is "urn:a".

       01 z PIC X(80) identified by "z" namespace is "urn:a".

