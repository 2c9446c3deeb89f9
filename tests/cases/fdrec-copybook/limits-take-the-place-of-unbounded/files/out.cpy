      * fdrec: unbounded 3, text 20
       01 b IDENTIFIED BY "b" NAMESPACE IS "urn:b" COUNT IN b-count.
           02 t PIC X(20) OCCURS 3 TIMES IDENTIFIED BY "t" NAMESPACE IS
               "" COUNT IN t-count.
