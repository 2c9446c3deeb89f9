        01 REC identified by "REC" count in REC-count.
         02 A pic X(1) identified by "A" count in A-count.
          88 VOWEL value is "A".
          88 VOWEL value is "E".
          88 OTHER value is "B".
