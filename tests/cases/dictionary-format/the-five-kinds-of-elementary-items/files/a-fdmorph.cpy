        01 REC identified by "REC" count in REC-count.
         02 A pic 9(4) identified by "A" count in A-count.
         02 B pic X(5) identified by "B" count in B-count.
         02 C pic XXBXX identified by "C" count in C-count.
         02 D pic ZZ,ZZ9 identified by "D" count in D-count.
         02 E pic N(4) identified by "E" count in E-count.
