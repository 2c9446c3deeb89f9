       01 h identified by "h".
        02 A PIC X(80) identified by "A".
        02 A-1 PIC X(80) identified by "A".

