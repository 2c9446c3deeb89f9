        01 REC identified by "REC" count in REC-count.
         02 Filler.
          03 A pic X(5) identified by "A" count in A-count.
         02 fILLEr pic X(1).
         02 FILLER-1 pic X(2) identified by "FILLER-1" count in 
            FILLER-1-count.
