        01 REC identified by "REC" count in REC-count.
         02 FILLER.
          03 A pic X(5) identified by "A" count in A-count.
          03 FILLER.
           04 B pic X(5) identified by "B" count in B-count.
           04 G identified by "G" count in G-count.
            05 D pic X(5) identified by "D" count in D-count.
         02 C pic X(5) identified by "C" count in C-count.
