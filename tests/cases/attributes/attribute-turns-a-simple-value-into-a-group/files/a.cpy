       01 price identified by "price".
        02 price-value PIC S9(9).
        02 currency PIC X(80) identified by "currency" is attribute.

