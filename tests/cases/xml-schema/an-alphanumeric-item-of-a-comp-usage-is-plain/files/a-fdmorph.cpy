        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) usage is COMPUTATIONAL identified by "A" count in
             A-count.
         02 B pic XBX usage is comp-x identified by "B" count in 
            B-count.
         02 C pic X(5) usage is com identified by "C" count in C-count.
