        01 REC identified by "REC" count in REC-count.
         02 A pic X(2) usage is comp-5 value is 7 identified by "A" 
            count in A-count.
