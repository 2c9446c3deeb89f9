       01 h identified by "h".
        02 a PIC X(80) identified by "a".
        02 b PIC X(80) identified by "b".
        02 c PIC X(80) identified by "c".
        02 d PIC X(80) identified by "d".
        02 e PIC X(80) identified by "e".

