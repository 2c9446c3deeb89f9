       01 h identified by "h".
        02 a identified by "a".
         03 v PIC X(80) identified by "v".

