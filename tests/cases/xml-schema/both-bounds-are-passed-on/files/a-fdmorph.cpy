        01 REC identified by "REC" count in REC-count.
         02 K pic 9(3) identified by "K" count in K-count.
         02 C pic ZZ9 occurs 0 to 10 times depending on K identified by 
            "C" count in C-count.
