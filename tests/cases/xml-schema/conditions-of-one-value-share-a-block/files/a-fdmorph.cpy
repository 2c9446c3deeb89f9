        01 REC identified by "REC" count in REC-count.
         02 A pic X(1) identified by "A" count in A-count.
          88 YES value is "Y".
          88 NO value is "N".
          88 MAYBE value is "M".
