       01 c PIC X(80) identified by "c" namespace is "urn:c".

       01 b PIC X(80) identified by "b" namespace is "urn:b".

