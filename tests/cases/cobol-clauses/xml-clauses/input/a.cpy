       01  ORDER-REC IDENTIFIED BY "order" NAMESPACE IS "urn:orders"
               COUNT IN ORDER-COUNT.
           05  SKU                 PIC X(8) IDENTIFIED BY "sku".
           05  VER                 PIC X(3) IDENTIFIED BY "version"
                                   IS ATTRIBUTE.
