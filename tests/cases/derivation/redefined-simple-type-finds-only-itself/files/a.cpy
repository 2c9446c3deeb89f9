       01 rec identified by "rec".
        02 d PIC S9(18) identified by "d".

