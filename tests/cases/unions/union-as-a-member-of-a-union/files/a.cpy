       01 u identified by "u".
        02 u-union-value-0.
         03 u-union-value-0-data.
         03 u-union-value-0-data-union-value-0.
          04 u-union-value-0-data-union-value-0-data PIC S9(18).
         03 u-union-value-0-data-union-value-1 redefines 
            u-union-value-0-data-union-value-0.
          04 u-union-value-0-data-union-value-1-data PIC X(80).

