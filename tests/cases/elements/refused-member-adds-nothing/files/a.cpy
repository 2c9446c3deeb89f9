       01 h identified by "h".
        02 e PIC X(80) identified by "e".

