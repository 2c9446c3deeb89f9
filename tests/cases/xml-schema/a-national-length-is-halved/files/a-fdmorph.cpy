        01 REC identified by "REC" count in REC-count.
         02 N11 pic N identified by "N11" count in N11-count.
         02 N12 pic N identified by "N12" count in N12-count.
         02 N1 pic N identified by "N1" count in N1-count.
