      * fdrec: unbounded 50, text 12
       01 ORDER-RECORD IDENTIFIED BY "order" NAMESPACE IS "urn:order".
         05 ORDER-ID PIC X(12) IDENTIFIED BY "id".
         05 ORDER-LINE OCCURS 50 TIMES IDENTIFIED BY "line".
           10 PRICE PIC S9(18)V9(5) USAGE COMP-3 IDENTIFIED BY "price".
           10 LINE-NUMBER PIC 9(3) IDENTIFIED BY "number" IS ATTRIBUTE.
         05 TOTAL PIC S9(9) IDENTIFIED BY "total".
