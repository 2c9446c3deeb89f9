        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "A" count in A-count.
         02 B pic X(5) identified by "B" count in B-count.
         02 C pic 9(3) identified by "C" count in C-count.
