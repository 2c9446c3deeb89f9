       01 u identified by "u".
        02 u-union-value-0.
         03 u-union-value-0-data.
          88 enumerator-0 value is "RED".
          88 enumerator-1 value is "BLUE".
          04 u-union-value-0-data-value PIC X(80).
        02 u-union-value-1 redefines u-union-value-0.
         03 u-union-value-1-data.
          88 enumerator-0 value is "0".
          04 u-union-value-1-data-value PIC S9(18).

