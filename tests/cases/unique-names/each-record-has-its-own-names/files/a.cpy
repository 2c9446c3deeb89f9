       01 h identified by "h".
        02 n PIC X(80) identified by "n".
        02 n-1 PIC X(80) identified by "n".

       01 k identified by "k".
        02 n PIC X(80) identified by "n".

