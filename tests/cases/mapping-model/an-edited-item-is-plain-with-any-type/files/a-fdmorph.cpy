        01 REC identified by "REC" count in REC-count.
         02 C pic ZZ9 identified by "C" count in C-count.
         02 D pic ZZ9 identified by "D" count in D-count.
