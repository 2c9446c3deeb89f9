       01 h identified by "h" namespace is "urn:t".
        02 v PIC X(80) identified by "v".

