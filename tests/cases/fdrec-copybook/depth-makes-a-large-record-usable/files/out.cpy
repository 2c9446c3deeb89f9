      * fdrec: unbounded 10
       01 top-1 IDENTIFIED BY "top" COUNT IN top-count.
           02 v PIC S9(18) IDENTIFIED BY "v" COUNT IN v-count.
           02 left-1 IDENTIFIED BY "left" COUNT IN left-count.
             03 v-1 PIC S9(18) IDENTIFIED BY "v" COUNT IN v-count-1.
           02 right-1 IDENTIFIED BY "right" COUNT IN right-count.
             03 v-2 PIC S9(18) IDENTIFIED BY "v" COUNT IN v-count-2.
