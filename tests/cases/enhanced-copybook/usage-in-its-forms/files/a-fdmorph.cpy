        01 REC identified by "REC" count in REC-count.
         02 A pic N(4) identified by "A" count in A-count.
         02 B pic N(4) usage is national identified by "B" count in 
            B-count.
         02 C usage is pointer identified by "C" count in C-count.
         02 D usage is comp-3 identified by "D" count in D-count.
          03 E pic X(5) identified by "E" count in E-count.
         02 F pic X(5) identified by "F" count in F-count.
