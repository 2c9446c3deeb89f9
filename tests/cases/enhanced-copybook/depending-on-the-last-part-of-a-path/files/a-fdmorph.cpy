        01 P-REC identified by "REC" count in P-REC-count.
         02 P-A pic X(5) occurs 3 times depending on N identified by "A"
             count in P-A-count.
         02 P-B pic X(5) occurs 3 times depending on N identified by "B"
             count in P-B-count.
         02 P-C pic X(5) occurs 3 times identified by "C" count in 
            P-C-count.
         02 P-D pic X(5) occurs 3 times identified by "D" count in 
            P-D-count.
