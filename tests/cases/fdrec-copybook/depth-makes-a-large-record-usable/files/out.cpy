      * fdrec: unbounded 10
       01 top IDENTIFIED BY "top" COUNT IN top-count.
           02 v PIC S9(18) IDENTIFIED BY "v" COUNT IN v-count.
           02 left IDENTIFIED BY "left" COUNT IN left-count.
             03 v-1 PIC S9(18) IDENTIFIED BY "v" COUNT IN v-count-1.
           02 right IDENTIFIED BY "right" COUNT IN right-count.
             03 v-2 PIC S9(18) IDENTIFIED BY "v" COUNT IN v-count-2.
