        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "A" count in A-count.
