        01 REC identified by "REC" namespace is "urn:x" count in 
           REC-count.
         02 G identified by "G" namespace is "urn:x" count in G-count.
          03 A pic X(5) identified by "A" namespace is "urn:x" count in 
             A-count.
