       01 part identified by "part".
        02 size identified by "size" is attribute.
         03 size-union-value-0.
          04 size-union-value-0-data PIC S9(18).
         03 size-union-value-1 redefines size-union-value-0.
          04 size-union-value-1-data PIC X(80).

