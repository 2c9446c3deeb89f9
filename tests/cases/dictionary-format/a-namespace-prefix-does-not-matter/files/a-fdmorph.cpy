        01 REC identified by "REC" count in REC-count.
         02 N pic 9(3) identified by "N" count in N-count.
         02 A pic X(5) identified by "A" count in A-count.
