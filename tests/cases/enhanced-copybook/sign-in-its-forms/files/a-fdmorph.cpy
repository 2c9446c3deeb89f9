        01 REC identified by "REC" count in REC-count.
         02 A pic S9(3) sign is leading identified by "A" count in 
            A-count.
         02 B pic S9(3) sign is leading separate identified by "B" count
             in B-count.
         02 C pic S9(3) sign is trailing separate identified by "C" 
            count in C-count.
         02 D pic S9(3) identified by "D" count in D-count.
         02 E pic S9(3) identified by "E" count in E-count.
