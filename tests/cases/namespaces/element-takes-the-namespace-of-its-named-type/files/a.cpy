       01 a identified by "a" namespace is "urn:a".
        02 c identified by "c" namespace is "urn:b".
         03 x PIC X(80) identified by "x".
        02 d PIC X(80) identified by "d".

