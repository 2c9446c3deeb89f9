        01 REC identified by "REC" count in REC-count.
         02 A pic S9(7) identified by "A" count in A-count.
         02 B pic S9(7) identified by "B" count in B-count.
         02 C pic S9(7) usage is comp-3 identified by "C" count in 
            C-count.
         02 D pic S9(7) usage is comp-4 identified by "D" count in 
            D-count.
         02 E pic S9(7) usage is comp-5 identified by "E" count in 
            E-count.
