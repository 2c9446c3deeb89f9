        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "Omega" count in Omega-count.
         02 B pic X(5).
