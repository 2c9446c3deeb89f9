       01 rec identified by "rec".
        02 a PIC X(0010) identified by "a".
        02 b PIC X(0100) identified by "b".
        02 c PIC X(80) identified by "c".
        02 d PIC S9(5)V9(02) identified by "d".

