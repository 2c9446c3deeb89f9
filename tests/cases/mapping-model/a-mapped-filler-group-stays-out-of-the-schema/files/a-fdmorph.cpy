        01 REC identified by "REC" count in REC-count.
         02 FILLER identified by "Gap" count in Gap-count.
          03 A pic X(5) identified by "A" count in A-count.
