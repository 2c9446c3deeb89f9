        01 REC identified by "REC" count in REC-count.
         02 B pic 9 identified by "B" count in B-count.
          88 NIL value is 0.
