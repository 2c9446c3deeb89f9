        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "A" count in A-count.
         02 B pic X(5) identified by "B".
         02 C pic X(5) identified by "C".
         02 D pic X(5) identified by "D".
         02 E pic X(5) identified by "E".
