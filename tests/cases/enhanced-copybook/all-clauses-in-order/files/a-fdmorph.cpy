        01 REC identified by "REC" count in REC-count.
         02 N pic X(1) identified by "N" count in N-count.
         02 A pic S9 usage is comp-3 occurs 1 to 3 times depending on N 
            sign is leading separate justified right blank when zero 
            value is 0 identified by "A" namespace is "urn:a" is 
            attribute count in A-count.
