        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) justified right identified by "A" count in 
            A-count.
         02 B pic X(5) identified by "B" count in B-count.
         02 C pic 9(3) blank when zero identified by "C" count in 
            C-count.
         02 D pic 9(3) identified by "D" count in D-count.
