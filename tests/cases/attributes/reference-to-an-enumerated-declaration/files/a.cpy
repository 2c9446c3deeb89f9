       01 weight identified by "weight".
        02 unit identified by "unit" is attribute.
         88 enumerator-0 value is "kg".
         03 unit-value PIC X(80).

