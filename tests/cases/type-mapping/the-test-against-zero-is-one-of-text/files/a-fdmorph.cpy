        01 REC identified by "REC" count in REC-count.
         02 A pic S9(7) identified by "A" count in A-count.
         02 B pic S9(7) identified by "B" count in B-count.
         02 C pic S9(7) identified by "C" count in C-count.
