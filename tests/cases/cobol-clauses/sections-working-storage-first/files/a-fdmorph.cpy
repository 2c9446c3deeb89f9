        01 TOTALS identified by "TOTALS".
         02 TOTAL pic 9(5) identified by "TOTAL".
