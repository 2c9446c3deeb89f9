        01 REC identified by "REC" count in REC-count.
         02 FILLER pic X(2).
         02 A pic X(5) identified by "A" count in A-count.
         02 Filler pic 9(3).
