        01 REC identified by "REC" count in REC-count.
         02 A usage is comp-1 identified by "A" count in A-count.
          88 NIL value is 0.
