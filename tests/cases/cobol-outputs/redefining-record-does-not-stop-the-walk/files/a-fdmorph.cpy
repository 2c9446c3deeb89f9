        01 OLD-ORDER identified by "OLD-ORDER" count in OLD-ORDER-count.
         02 FIELD pic X(5) identified by "FIELD" count in FIELD-count.
