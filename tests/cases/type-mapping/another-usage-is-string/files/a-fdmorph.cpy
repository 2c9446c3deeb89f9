        01 REC identified by "REC" count in REC-count.
         02 A usage is index identified by "A" count in A-count.
         02 B pic 9(3) usage is Display identified by "B" count in 
            B-count.
