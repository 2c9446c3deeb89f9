       01 fee identified by "fee".
        02 fee-value PIC S9(9).
        02 currency PIC X(80) identified by "currency" is attribute.
        02 day PIC X(80) identified by "day" is attribute.

