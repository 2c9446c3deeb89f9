        01 REC identified by "REC" count in REC-count.
         02 A usage is comp-1 identified by "A" count in A-count.
         02 B usage is comp-2 identified by "B" count in B-count.
         02 C pic S9(7) usage is comp-3 identified by "C" count in 
            C-count.
         02 D pic S9(7) usage is comp-5 identified by "D" count in 
            D-count.
         02 E pic S9(7) usage is comp identified by "E" count in 
            E-count.
         02 F pic Z9 identified by "F" count in F-count.
         02 G pic X(5) identified by "G" count in G-count.
         02 H pic XBX identified by "H" count in H-count.
         02 I pic N identified by "I" count in I-count.
