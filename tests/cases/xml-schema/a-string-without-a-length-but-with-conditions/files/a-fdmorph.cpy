        01 REC identified by "REC" count in REC-count.
         02 A pic X identified by "A" count in A-count.
          88 YES value is "Y".
