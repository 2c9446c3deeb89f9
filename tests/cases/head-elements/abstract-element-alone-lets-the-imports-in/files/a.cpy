       01 b PIC X(80) identified by "b" namespace is "urn:b".

