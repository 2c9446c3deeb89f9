        01 P-REC identified by "REC" count in P-REC-count.
         02 P-A pic X(5) occurs 3 times value is "x" identified by "A" 
            count in P-A-count.
