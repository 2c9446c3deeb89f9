        01 REC identified by "REC" count in REC-count.
         02 X-A pic X(3) identified by "X-A" count in X-A-count.
