       01 h identified by "h".
        02 v PIC X(80) identified by "v".

