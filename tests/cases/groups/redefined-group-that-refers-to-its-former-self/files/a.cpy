       01 a identified by "a".
        02 c PIC X(80) identified by "c".

