       01 h identified by "h".
        02 m PIC X(80) identified by "m".
        02 z PIC X(80) identified by "z".

