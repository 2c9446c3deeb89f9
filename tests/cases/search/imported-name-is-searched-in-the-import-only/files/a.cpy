       01 a identified by "a" namespace is "urn:t".
        02 one identified by "one".
         03 m PIC X(80) identified by "m".
        02 two identified by "two" namespace is "urn:b".
         03 i PIC X(80) identified by "i".

