       01 e identified by "e".
        02 c PIC X(80) identified by "c".
        02 c PIC X(80) identified by "c".

