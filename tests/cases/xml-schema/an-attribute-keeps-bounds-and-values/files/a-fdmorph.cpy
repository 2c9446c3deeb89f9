        01 REC identified by "REC" count in REC-count.
         02 C pic Z9 occurs 2 times identified by "C" is attribute count
             in C-count.
          88 ONE value is 1.
