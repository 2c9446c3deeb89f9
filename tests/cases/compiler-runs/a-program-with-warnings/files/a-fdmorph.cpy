        01 REC identified by "REC" count in REC-count.
         02 A pic X(2) value is "abc" identified by "A" count in 
            A-count.
