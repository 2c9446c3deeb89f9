        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "Code" count in Code-count.
         02 B pic S9(3)V9 identified by "B" count in B-count.
