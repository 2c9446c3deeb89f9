       01 rec identified by "rec" namespace is "urn:u".
        02 u occurs 4 times identified by "u".
         03 u-union-value-0.
          04 u-union-value-0-data PIC S9(18).
         03 u-union-value-1 redefines u-union-value-0.
          04 u-union-value-1-data PIC X(80).

