        01 REC identified by "REC" count in REC-count.
         88 ALL value is ***.
         02 A pic X(5) identified by "A" count in A-count.
