        01 REC identified by "REC" count in REC-count.
         02 G.
          03 A pic X(5).
          03 B pic X(5) identified by "B" count in B-count.
