       01 u identified by "u".
        02 u-union-value-0.
         03 u-union-value-0-data PIC X(80).

