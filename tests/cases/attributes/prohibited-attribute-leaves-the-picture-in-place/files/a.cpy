       01 price PIC S9(9)V9(9) identified by "price".

