        01 REC identified by "REC" count in REC-count.
         02 A pic X(9) value is "a"b&c<" identified by "A" count in 
            A-count.
         02 B pic X(9) value is "a b" identified by "B" count in 
            B-count.
