       01 a identified by "a".
        02 y PIC X(80) identified by "y".

