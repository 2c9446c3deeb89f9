        01 WS-REC identified by "REC" count in WS-REC-count.
         02 WS-Order-Line_No pic X(5) identified by "Order-Line_No" 
            count in WS-Order-Line_No-count.
