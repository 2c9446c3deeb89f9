        01 REC identified by "REC" count in REC-count.
         02 G1 identified by "G1" count in G1-count.
          03 G2 identified by "G2" count in G2-count.
           04 G3 identified by "G3" count in G3-count.
            05 A pic X(5) identified by "Alpha" count in Alpha-count.
