        01 REC identified by "REC" count in REC-count.
         02 A pic ZZ9.99 identified by "A" count in A-count.
