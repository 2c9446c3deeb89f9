        01 REC identified by "REC" count in REC-count.
         02 A identified by "A" count in A-count.
         02 FILLER.
