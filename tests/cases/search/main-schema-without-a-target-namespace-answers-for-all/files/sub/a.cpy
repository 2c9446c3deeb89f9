       01 a identified by "a".
        02 x PIC S9(18) identified by "x".

