       01 rec identified by "rec".
        02 a PIC S9(5) identified by "a".
        02 b PIC 9(3) identified by "b".
        02 c PIC S9(5) identified by "c".
        02 d PIC S9(18) identified by "d".
        02 e PIC 9(30) identified by "e".

