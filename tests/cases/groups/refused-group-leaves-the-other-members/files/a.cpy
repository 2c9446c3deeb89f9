       01 h identified by "h" namespace is "urn:t".
        02 x identified by "x".
         03 v PIC X(80) identified by "v".
         03 w PIC X(80) identified by "w".

