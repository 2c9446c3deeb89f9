      * fdrec: unbounded 10
       01 o IDENTIFIED BY "o" COUNT IN o-count.
           02 l OCCURS 10 TIMES IDENTIFIED BY "l" COUNT IN l-count.
             03 p PIC S9(18) IDENTIFIED BY "p" COUNT IN p-count.
           02 n PIC 9(18) IDENTIFIED BY "n" COUNT IN n-count.
