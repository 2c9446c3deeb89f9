       01 rec identified by "rec".
        02 a PIC S9(5)V9(2) identified by "a".
        02 b PIC S9(9)V9(2) identified by "b".
        02 c PIC S9(7)V9(9) identified by "c".
        02 d PIC S9(0)V9(2) identified by "d".
        02 e PIC S9(7)V9(0) identified by "e".

