        01 REC identified by "REC" count in REC-count.
         02 A pic X(4) identified by "A" count in A-count.
         02 C pic X identified by "C" count in C-count.
