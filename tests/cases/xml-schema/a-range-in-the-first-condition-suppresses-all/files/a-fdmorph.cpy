        01 REC identified by "REC" count in REC-count.
         02 A pic X(1) identified by "A" count in A-count.
          88 LOW value is "A" through "F".
          88 LOW value is "H" through "K".
          88 ZED value is "Z".
