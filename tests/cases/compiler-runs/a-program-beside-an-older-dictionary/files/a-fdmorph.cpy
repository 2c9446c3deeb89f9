        01 WS-ORDER-REC identified by "ORDER-REC" count in 
           WS-ORDER-REC-count.
         02 WS-ORDER-NO pic 9(6) identified by "ORDER-NO" count in 
            WS-ORDER-NO-count.
         02 WS-CUSTOMER pic X(20) identified by "CUSTOMER" count in 
            WS-CUSTOMER-count.
         02 WS-LINE-CNT pic 9(2) usage is comp-4 identified by 
            "LINE-CNT" count in WS-LINE-CNT-count.
         02 WS-TOTAL pic S9(7)V99 usage is comp-3 identified by "TOTAL" 
            count in WS-TOTAL-count.
         02 WS-ORDER-LINE occurs 1 to 20 times depending on LINE-CNT 
            identified by "ORDER-LINE" count in WS-ORDER-LINE-count.
          03 WS-ARTICLE pic X(8) identified by "ARTICLE" count in 
             WS-ARTICLE-count.
          03 WS-PRICE pic S9(5)V99 usage is comp-3 identified by "PRICE"
              count in WS-PRICE-count.
          03 WS-NOTE pic X(10) occurs 3 times identified by "NOTE" count
              in WS-NOTE-count.
         02 WS-SHIP-DATE identified by "SHIP-DATE" count in 
            WS-SHIP-DATE-count.
          03 WS-SHIP-YEAR pic 9(4) identified by "SHIP-YEAR" count in 
             WS-SHIP-YEAR-count.
          03 WS-FILLER pic X value is "-".
          03 WS-SHIP-DAY pic 9(3) identified by "SHIP-DAY" count in 
             WS-SHIP-DAY-count.
