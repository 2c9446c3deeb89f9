        01 REC identified by "REC" count in REC-count.
         02 B pic 9(1) identified by "B" count in B-count.
          88 MIX value is 0 through 4.
          88 MIX value is 9.
