       01 h identified by "h".
        02 v PIC X(80) identified by "v".
        02 e identified by "e".
         03 v PIC X(80) identified by "v".

