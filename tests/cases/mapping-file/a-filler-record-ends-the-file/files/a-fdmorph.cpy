        01 FILLER.
         02 A pic X(5) identified by "A" count in A-count.
