        01 ODD identified by "ODD" namespace is "urn:odd" count in 
           ODD-count.
         02 A pic X(5) identified by "A" count in A-count.
