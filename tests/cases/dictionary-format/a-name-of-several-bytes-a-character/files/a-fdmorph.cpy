        01 REC identified by "REC" count in REC-count.
         02 STRAßE pic X(5) identified by "STRAßE" count in 
            STRAßE-count.
