       01 rec identified by "rec".
        02 a PIC X(20) identified by "a".
        02 b PIC X(10) identified by "b".

