       01 a identified by "a" namespace is "urn:t".
        02 one PIC X(80) identified by "one".
        02 two identified by "two".
         03 c PIC X(80) identified by "c".

