        01 REC identified by "REC" count in REC-count.
         02 FILLER.
          03 A pic X(5) identified by "A" is attribute count in A-count.
          03 B pic X(5) identified by "B" count in B-count.
