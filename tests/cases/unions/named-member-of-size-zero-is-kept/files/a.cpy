       01 u identified by "u".
        02 u-union-value-0.
         03 u-union-value-0-data PIC S9(9)V9(9).
        02 u-union-value-1 redefines u-union-value-0.
         03 u-union-value-1-data PIC X(0).

