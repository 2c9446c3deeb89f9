        01 CUSTOMER-REFERENCE-KEY identified by "CUSTOMER-REFERENCE-KEY"
            count in CUSTOMER-REFERENCE-KEY-count.
         02 A pic X identified by "A" count in A-count.
