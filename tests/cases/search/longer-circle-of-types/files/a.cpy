       01 h identified by "h".
        02 v PIC X(80) identified by "v".
        02 u identified by "u".
         03 w PIC X(80) identified by "w".

