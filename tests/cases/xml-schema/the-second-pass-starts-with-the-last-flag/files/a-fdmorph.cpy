        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "A" count in A-count.
         02 B pic X(5) identified by "B" is attribute count in B-count.
