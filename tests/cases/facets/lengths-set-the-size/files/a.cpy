       01 rec identified by "rec".
        02 a PIC X(200) identified by "a".
        02 b PIC X(3) identified by "b".
        02 c PIC X(80) identified by "c".
        02 d PIC X(100) identified by "d".
        02 e PIC X(120) identified by "e".
        02 f PIC X(120) identified by "f".
        02 g PIC X(10) identified by "g".
        02 h PIC X(16) identified by "h".

