       01 a identified by "a".
        02 b PIC X(80) identified by "b".

