        01 REC identified by "REC" count in REC-count.
         02 A pic X(1) identified by "A" count in A-count.
          88 R value is "A" through "F".
          88 R value is "" through "Z".
          88 R.
          88 R.
         02 B pic 9(1) identified by "B" count in B-count.
          88 S value is 1 through 5.
          88 S.
          88 S.
