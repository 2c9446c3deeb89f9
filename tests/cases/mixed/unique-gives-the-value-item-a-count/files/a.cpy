       01 bill identified by "bill" count in bill-count.
        02 fee-value PIC S9(18) identified by "fee-value" count in 
           fee-value-count.
        02 fee identified by "fee" count in fee-count.
         03 fee-value-1 PIC X(80) count in fee-value-1-count.
         03 currency PIC X(80) identified by "currency" is attribute 
            count in currency-count.

