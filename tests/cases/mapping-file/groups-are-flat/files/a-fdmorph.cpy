        01 REC identified by "REC" count in REC-count.
         02 G identified by "G" count in G-count.
          03 H identified by "H" count in H-count.
           04 A pic X(5) identified by "A" count in A-count.
          03 B pic X(5) identified by "B" count in B-count.
         02 C pic X(5) identified by "C" count in C-count.
