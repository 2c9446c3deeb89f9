        01 REC identified by "REC" count in REC-count.
         02 A pic S9(7) usage is comp identified by "A" count in 
            A-count.
