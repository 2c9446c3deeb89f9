        01 REC identified by "REC" count in REC-count.
         02 B pic 9(3) identified by "B" count in B-count.
         02 C pic 9V9 identified by "C" count in C-count.
