        01 REC identified by "REC" count in REC-count.
         02 A pic X(5) identified by "A" namespace is "urn:a?b&c" count 
            in A-count.
