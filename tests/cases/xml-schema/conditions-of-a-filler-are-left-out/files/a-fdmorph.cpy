        01 REC identified by "REC" count in REC-count.
         02 FILLER pic X(1).
          88 YES value is "Y".
          88 LOW value is "A" through "F".
         02 A pic X(5) identified by "A" count in A-count.
