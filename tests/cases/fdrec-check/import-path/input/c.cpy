       01  C-ORDER IDENTIFIED BY "order".
           05  C-CODE PIC X(5) IDENTIFIED BY "code".
