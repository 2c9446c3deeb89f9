       01 h identified by "h".
        02 v PIC X(80) identified by "v".
        02 x identified by "x".
         03 w PIC X(80) identified by "w".

