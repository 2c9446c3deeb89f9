       01 a PIC X(80) identified by "a" namespace is "urn:a".

       01 c PIC X(80) identified by "c" namespace is "urn:b".

