       01 y PIC X(80) identified by "y" namespace is "urn:b".

