       01  ORDER-RECORD IDENTIFIED BY "order"
               NAMESPACE IS "urn:order".
           05  ORDER-ID PIC X(10) IDENTIFIED BY "id".
           05  ORDER-LINE OCCURS 20 IDENTIFIED BY "line".
               10  PRICE PIC S9(9) COMP-3 IDENTIFIED BY "price".
               10  LINE-NUMBER PIC 9(3) IS ATTRIBUTE
                   IDENTIFIED BY "number".
           05  TOTAL PIC S9(9) IDENTIFIED BY "total".
