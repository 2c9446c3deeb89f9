        01 ODD identified by "ODD" count in ODD-count.
         02 A pic X(5) identified by "A" count in A-count.
