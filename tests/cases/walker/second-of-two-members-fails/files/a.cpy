       01 h identified by "h".
        02 x PIC X(80) identified by "x".

