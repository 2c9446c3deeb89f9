        01 ORDER-REC identified by "ORDER-REC" count in ORDER-REC-count.
         02 ORDER-NO pic 9(6) identified by "ORDER-NO" count in 
            ORDER-NO-count.
         02 CUSTOMER pic X(20) identified by "CUSTOMER" count in 
            CUSTOMER-count.
         02 LINE-CNT pic 9(2) usage is comp-4 identified by "LINE-CNT" 
            count in LINE-CNT-count.
         02 TOTAL pic S9(7)V99 usage is comp-3 identified by "TOTAL" 
            count in TOTAL-count.
         02 ORDER-LINE occurs 1 to 20 times depending on LINE-CNT 
            identified by "ORDER-LINE" count in ORDER-LINE-count.
          03 ARTICLE pic X(8) identified by "ARTICLE" count in 
             ARTICLE-count.
          03 PRICE pic S9(5)V99 usage is comp-3 identified by "PRICE" 
             count in PRICE-count.
          03 NOTE pic X(10) occurs 3 times identified by "NOTE" count in
              NOTE-count.
         02 SHIP-DATE identified by "SHIP-DATE" count in 
            SHIP-DATE-count.
          03 SHIP-YEAR pic 9(4) identified by "SHIP-YEAR" count in 
             SHIP-YEAR-count.
          03 FILLER pic X value is "-".
          03 SHIP-DAY pic 9(3) identified by "SHIP-DAY" count in 
             SHIP-DAY-count.
