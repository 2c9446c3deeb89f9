        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "Alpha" is attribute.
         02 B pic X(5) identified by "B" count in B-count.
