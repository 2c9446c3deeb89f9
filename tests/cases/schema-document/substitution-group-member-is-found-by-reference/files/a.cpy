       01 h identified by "h".
        02 m PIC X(80) identified by "m".

