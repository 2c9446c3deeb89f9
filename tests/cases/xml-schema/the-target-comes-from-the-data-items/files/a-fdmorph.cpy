        01 FREC identified by "FREC" count in FREC-count.
         02 B pic X(5) identified by "B" count in B-count.
