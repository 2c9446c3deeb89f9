        01 REC identified by "REC" count in REC-count.
         02 A pic X usage is comp identified by "A" count in A-count.
          88 IS value is "1".
         02 B pic X usage is comp identified by "B" count in B-count.
          88 IS value is "1".
         02 C pic X usage is national identified by "C" count in 
            C-count.
          88 IS value is "1".
         02 D pic X usage is comp identified by "D" count in D-count.
          88 IS value is 1.
         02 E pic X usage is comp identified by "E" count in E-count.
          88 IS value is 1.
