       01 h identified by "h" namespace is "urn:t".
        02 e PIC X(80) identified by "e".
        02 m PIC X(80) identified by "m".

