        01 W-REC identified by "W-REC" count in W-REC-count.
         02 A pic X(2) identified by "A" count in A-count.
