       01 ORDER-LINE.
          05 ITEM-NO PIC X(8).
             88 SAMPLE-ITEM VALUE "FREE".
          05 PRICE PIC S9(5)V99 COMP-3.
          05 SIZES PIC 9(2) OCCURS 2.
