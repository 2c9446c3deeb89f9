        01 REC identified by "REC" count in REC-count.
         02 A pic X(80) value is 
            "01234567890123456789012345678901234567890123456789012345678
      -     "901234567890123456789" identified by "A" count in A-count.
