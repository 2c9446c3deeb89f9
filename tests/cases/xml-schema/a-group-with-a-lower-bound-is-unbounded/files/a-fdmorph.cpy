        01 REC identified by "REC" count in REC-count.
         02 G1 identified by "G1" count in G1-count.
          03 A pic X(5) identified by "A" count in A-count.
