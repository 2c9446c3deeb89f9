      * fdrec: unbounded 10
       01 o IDENTIFIED BY "o" NAMESPACE IS "urn:o" COUNT IN o-count.
           02 l IDENTIFIED BY "l" COUNT IN l-count.
             03 n PIC 9(5) IDENTIFIED BY "n" NAMESPACE IS "" COUNT IN
                 n-count.
           02 a PIC S9(9)V9(2) IDENTIFIED BY "a" COUNT IN a-count.
           02 u PIC X(3) IDENTIFIED BY "u" COUNT IN u-count.
