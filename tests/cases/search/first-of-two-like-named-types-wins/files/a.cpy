       01 a identified by "a" namespace is "urn:t".
        02 own PIC X(80) identified by "own".

