        01 REC identified by "REC".
         02 RATE pic 9(3) occurs 12 times identified by "RATE".
         02 ROWS pic 9(2) identified by "ROWS".
         02 ROW occurs 1 to 50 times depending on ROWS identified by 
            "ROW".
          03 SKU pic X(8) identified by "SKU".
