        01 REC identified by "REC" count in REC-count.
         02 A pic 9(4)V9 identified by "A" count in A-count.
