       01 rec identified by "rec".
        02 a-1 PIC S9(18) identified by "a_1".
        02 b PIC S9(1) identified by "b" is attribute.

