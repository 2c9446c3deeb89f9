        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) occurs 2 times identified by "A" namespace is 
            "urn:item" count in A-count.
