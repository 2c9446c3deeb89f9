       01 h identified by "h".
        02 v PIC X(80) identified by "v" namespace is "urn:b".
        02 w identified by "w" namespace is "urn:b".
         03 x PIC X(80) identified by "x".

