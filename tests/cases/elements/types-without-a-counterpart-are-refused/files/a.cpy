       01 h identified by "h".
        02 e2 PIC X(80) identified by "e2".
        02 e4 PIC X(80) identified by "e4".

