       01  C-ORDER IDENTIFIED BY "order" NAMESPACE IS "urn:s".
           05  C-CUR PIC X(3) IDENTIFIED BY "cur" IS ATTRIBUTE.
           05  C-ID PIC 9(2) IDENTIFIED BY "id".
           05  C-NOTE PIC X(3) IDENTIFIED BY "note".
           05  C-LINE PIC X(2) OCCURS 3 IDENTIFIED BY "line".
           05  C-FROM PIC X(2) IDENTIFIED BY "from".
           05  C-TO PIC X(2) IDENTIFIED BY "to".
