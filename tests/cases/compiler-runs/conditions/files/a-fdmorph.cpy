        01 REC identified by "REC" count in REC-count.
         02 STATE pic X(3) identified by "STATE" count in STATE-count.
          88 OPEN-ORDER value is "new".
          88 CLOSED value is "end".
         02 KIND pic 9 identified by "KIND" count in KIND-count.
          88 LOW value is 1.
          88 HIGH value is 9.
         02 MODE-1 pic S9(2) usage is comp-3 identified by "MODE-1" 
            count in MODE-1-count.
          88 SOME value is -5 through 5.
          88 SOME value is 9.
