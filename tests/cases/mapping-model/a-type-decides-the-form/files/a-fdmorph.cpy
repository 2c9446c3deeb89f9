        01 REC identified by "REC" count in REC-count.
         02 A pic 9(3) identified by "A" count in A-count.
         02 B pic 9(3) usage is comp-3 identified by "B" count in 
            B-count.
         02 C pic 9(3) identified by "C" count in C-count.
         02 D pic 9(3) identified by "D" count in D-count.
         02 E pic 9(3) identified by "E" count in E-count.
         02 F pic X(5) identified by "F" count in F-count.
         02 G usage is comp-1 identified by "G" count in G-count.
