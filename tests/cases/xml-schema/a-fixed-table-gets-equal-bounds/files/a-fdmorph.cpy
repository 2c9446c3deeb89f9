        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) occurs 5 times identified by "A" count in 
            A-count.
         02 B pic 9(3) identified by "B" count in B-count.
