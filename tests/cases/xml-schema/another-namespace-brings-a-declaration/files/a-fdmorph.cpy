        01 REC identified by "REC" namespace is "urn:orders" count in 
           REC-count.
         02 A pic X(5) identified by "A" namespace is "urn:item" count 
            in A-count.
         02 G identified by "G" namespace is "urn:group" count in 
            G-count.
          03 B pic X(5) identified by "B" count in B-count.
