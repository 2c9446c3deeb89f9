       01 h identified by "h" namespace is "urn:a".
        02 e identified by "e" namespace is "urn:b".
         03 v PIC X(80) identified by "v".

