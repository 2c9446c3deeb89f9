        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) value is "abc" identified by "A" count in 
            A-count.
         02 B pic XBX value is "a b" identified by "B" count in B-count.
         02 C pic N(2) value is "xy" identified by "C" count in C-count.
         02 D pic 9(3) value is -12 identified by "D" count in D-count.
         02 E pic Z9 value is  7 identified by "E" count in E-count.
         02 F value is SPACES identified by "F" count in F-count.
          03 H pic X(5) identified by "H" count in H-count.
         02 I pic X(5) value is "" identified by "I" count in I-count.
