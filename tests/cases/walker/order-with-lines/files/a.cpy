       01 order identified by "order".
        02 id PIC S9(18) identified by "id".
        02 item occurs 3 times identified by "item".
         03 sku PIC X(80) identified by "sku".

