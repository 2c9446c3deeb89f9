        01 WS-REC identified by "REC" count in WS-REC-count.
         02 WS-A pic X(5) identified by "A" count in WS-A-count.
         02 WS-B pic S9(3) usage is comp-3 occurs 3 times sign is 
            trailing separate identified by "B" count in WS-B-count.
         02 WS-FILLER pic X.
