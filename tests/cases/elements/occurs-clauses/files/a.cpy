       01 h identified by "h".
        02 a PIC X(80) identified by "a".
        02 b PIC X(80) identified by "b".
        02 c PIC X(80) occurs 2 times identified by "c".
        02 d PIC X(80) identified by "d".
        02 e PIC X(80) occurs 5 times identified by "e".
        02 f PIC X(80) occurs 0 times identified by "f".
        02 g PIC X(80) occurs 01 times identified by "g".

