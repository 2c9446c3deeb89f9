        01 REC identified by "REC" count in REC-count.
         02 A pic S9(20)V9(18) identified by "A" count in A-count.
         02 B pic 9 usage is comp-5 identified by "B" count in B-count.
