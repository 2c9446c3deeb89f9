        01 P-REC identified by "REC" count in P-REC-count.
         02 P-C pic Z9 identified by "C" count in P-C-count.
          88 P-LOW value is 1.
          88 P-LOW value is 2.
          88 P-HIGH value is 8 through 9.
