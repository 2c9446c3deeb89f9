        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "First" count in First-count.
