        01 REC identified by "REC" count in REC-count.
         02 A pic X usage is comp-1 identified by "A" count in A-count.
         02 B pic XBX usage is comp-2 identified by "B" count in 
            B-count.
         02 C pic N usage is national identified by "C" count in 
            C-count.
         02 D pic Z9 usage is comp-5 identified by "D" count in D-count.
         02 E pic X identified by "E" count in E-count.
