       01 h identified by "h".
        02 c PIC X(80) identified by "c".

