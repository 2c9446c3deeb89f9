        01 W-REC identified by "REC" count in W-REC-count.
         02 W-A pic X(5) identified by "A" count in W-A-count.
         02 W-F pic X(5) identified by "F" count in W-F-count.
