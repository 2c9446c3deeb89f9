       01 h identified by "h".
        02 e PIC X(80) identified by "e".
        02 m PIC X(80) identified by "m".
        02 n PIC X(80) identified by "n".
        02 z PIC X(80) identified by "z".

