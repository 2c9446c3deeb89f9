        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) occurs 3 times identified by "A" count in 
            A-count.
         02 B pic X(5) occurs 0 to 3 times identified by "B" count in 
            B-count.
         02 C pic X(5) identified by "C" count in C-count.
         02 D pic X(5) occurs 7 times identified by "D" count in 
            D-count.
