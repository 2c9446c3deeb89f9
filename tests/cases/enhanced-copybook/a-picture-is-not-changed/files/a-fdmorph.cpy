        01 REC identified by "REC" count in REC-count.
         02 A pic s9(3)v9(02) identified by "A" count in A-count.
         02 B pic xx/xx identified by "B" count in B-count.
         02 C pic X(5) identified by "C" count in C-count.
          03 D pic X(5) identified by "D" count in D-count.
