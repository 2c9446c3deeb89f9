       01 h identified by "h".
        02 a PIC X(80) identified by "a".
        02 b PIC X(80) identified by "b".

