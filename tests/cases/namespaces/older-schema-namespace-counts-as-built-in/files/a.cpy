       01 a identified by "a".
        02 s PIC X(80) identified by "s".
        02 d PIC X(80) identified by "d".

