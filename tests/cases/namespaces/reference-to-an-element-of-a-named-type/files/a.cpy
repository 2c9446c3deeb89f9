       01 a identified by "a" namespace is "urn:a".
        02 x identified by "x" namespace is "urn:c".
         03 f PIC X(80) identified by "f".

