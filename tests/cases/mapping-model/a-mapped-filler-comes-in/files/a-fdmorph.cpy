        01 REC identified by "REC" count in REC-count.
         02 FILLER pic X(2) identified by "Gap" count in Gap-count.
         02 A pic X(5) identified by "A" count in A-count.
         02 FILLER pic X(3) identified by "Gap" count in Gap-count.
