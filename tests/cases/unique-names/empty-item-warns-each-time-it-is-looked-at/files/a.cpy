       01 h identified by "h".
        02 c PIC X(80) identified by "c".
        02 d PIC X(80) identified by "d".

