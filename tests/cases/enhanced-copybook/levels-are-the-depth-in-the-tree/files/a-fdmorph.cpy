        01 REC identified by "REC" count in REC-count.
         02 G2 identified by "G2" count in G2-count.
          03 G3 identified by "G3" count in G3-count.
           04 G4 identified by "G4" count in G4-count.
            05 G5 identified by "G5" count in G5-count.
             06 G6 identified by "G6" count in G6-count.
              07 G7 identified by "G7" count in G7-count.
               08 G8 identified by "G8" count in G8-count.
                9 G9 identified by "G9" count in G9-count.
                 10 A pic X(5) identified by "A" count in A-count.
