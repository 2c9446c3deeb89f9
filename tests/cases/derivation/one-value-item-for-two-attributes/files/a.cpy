       01 unit-price identified by "unit_price".
        02 unit-price-value PIC X(80).
        02 a PIC X(80) identified by "a" is attribute.
        02 b PIC X(80) identified by "b" is attribute.

