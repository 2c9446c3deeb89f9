       01 a identified by "a" namespace is "urn:t".
        02 b PIC X(80) identified by "b" namespace is "urn:o".

       01 b PIC X(80) identified by "b" namespace is "urn:t".

