       01 order identified by "order" count in order-count.
        02 id PIC S9(18) identified by "id" count in id-count.
        02 item occurs 3 times identified by "item" count in 
           item-count.
         03 sku PIC X(80) identified by "sku" count in sku-count.
        02 ver PIC X(80) identified by "ver" is attribute.
