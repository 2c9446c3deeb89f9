       01 r identified by "r".
        02 d PIC X(80) identified by "d".

