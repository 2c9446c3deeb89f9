       01 rec identified by "rec".
        02 a PIC S9(3)V9(2) identified by "a".
        02 b PIC S9(8)V9(1) identified by "b".

