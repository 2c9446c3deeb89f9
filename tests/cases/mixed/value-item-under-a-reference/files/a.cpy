       01 bill identified by "bill".
        02 fee occurs 3 times identified by "fee".
         03 fee-value PIC X(80).
         03 currency PIC X(80) identified by "currency" is attribute.

