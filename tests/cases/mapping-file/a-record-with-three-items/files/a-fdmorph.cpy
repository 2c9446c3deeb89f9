        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "A" count in A-count.
         02 B pic 9(5)V99 identified by "B" count in B-count.
         02 C pic ZZ9 identified by "C" count in C-count.
