        01 REC identified by "Order" count in Order-count.
         02 A pic X(5) identified by "Alpha" count in Alpha-count.
