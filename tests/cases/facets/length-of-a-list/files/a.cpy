       01 rec identified by "rec".
        02 b PIC X(3) identified by "b".

