       01 price identified by "price".
        02 price-union-value-0.
         03 price-union-value-0-data PIC S9(9)V9(9).
        02 price-union-value-1 redefines price-union-value-0.
         03 price-union-value-1-data PIC X(80).
        02 unit PIC X(80) identified by "unit" is attribute.

