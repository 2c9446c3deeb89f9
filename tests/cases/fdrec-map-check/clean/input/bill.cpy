       01  BILL.
           05  BILL-NO PIC 9(6).
           05  AMOUNT PIC S9(5)V99 COMP-3.
           05  STATE PIC X.
               88  PAID VALUE "p".
