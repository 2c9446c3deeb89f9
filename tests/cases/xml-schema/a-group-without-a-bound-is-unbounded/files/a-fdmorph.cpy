        01 REC identified by "REC" count in REC-count.
         02 G1 identified by "G1" count in G1-count.
          03 A pic X(5) identified by "A" count in A-count.
         02 G2 occurs 3 times identified by "G2" count in G2-count.
          03 B pic X(5) identified by "B" count in B-count.
         02 C pic X(5) identified by "C" count in C-count.
