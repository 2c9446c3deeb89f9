       01 a identified by "a".
        02 b PIC S9(18) identified by "b".

