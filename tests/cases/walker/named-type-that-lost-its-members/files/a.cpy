       01 h identified by "h".
        02 y PIC X(80) identified by "y".

