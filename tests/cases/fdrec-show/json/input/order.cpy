       01  ORDERS IDENTIFIED BY "order" NAMESPACE IS "urn:o".
           05  ORDER-ID PIC 9(6) IDENTIFIED BY "id" IS ATTRIBUTE.
           05  KIND PIC X IDENTIFIED BY "kind".
               88  IS-RUSH VALUE "R".
               88  IS-BULK VALUES "B" "F" THRU "H" SPACE.
           05  LINE-COUNT PIC S9(4) COMP.
           05  BALANCE PIC S9(7)V99 SIGN LEADING SEPARATE
               IDENTIFIED BY "balance".
           05  A-LINE OCCURS 1 TO 5 DEPENDING ON LINE-COUNT
               IDENTIFIED BY "line" COUNT IN LINES-SEEN.
               10  SKU PIC X(8) IDENTIFIED BY "sku" IS ATTRIBUTE.
               10  NOTE-TEXT PIC X(20).
           05  DAY-NUMBER PIC 9(8) IDENTIFIED BY "day".
           05  DAY-PARTS REDEFINES DAY-NUMBER.
               10  YEAR-PART PIC 9(4).
               10  REST-PART PIC 9(4).
           05  FILLER PIC X(3).
