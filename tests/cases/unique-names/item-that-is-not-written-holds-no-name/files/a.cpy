       01 h identified by "h".
        02 b-x PIC X(80) identified by "b-x".

