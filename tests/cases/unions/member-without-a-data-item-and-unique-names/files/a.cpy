       01 a identified by "a".
        02 a-union-value-0.
        02 a-union-value-1 redefines a-union-value-0.
         03 a-union-value-1-data PIC S9(18).

