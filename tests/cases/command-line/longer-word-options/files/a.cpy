       01 r identified by "r".
        02 a PIC X(80) identified by "a".
        02 a-1 PIC X(80) identified by "a".

