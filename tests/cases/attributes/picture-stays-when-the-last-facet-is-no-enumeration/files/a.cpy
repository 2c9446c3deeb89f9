       01 weight identified by "weight".
        02 unit PIC X(2) identified by "unit" is attribute.
         88 enumerator-0 value is "kg".
         88 enumerator-1 value is "lb".

