        01 REC identified by "REC" count in REC-count.
         02 C pic Z9 identified by "C" count in C-count.
          88 ONE value is 1.
          88 TWO value is 2.
