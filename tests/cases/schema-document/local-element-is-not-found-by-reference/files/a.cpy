       01 a identified by "a" namespace is "urn:t".
        02 b identified by "b".
         03 x PIC X(80) identified by "x".

