       01  BILL.
           05  BILL-NO PIC 9(8).
           05  MONEY.
               10  AMOUNT PIC S9(7)V99 COMP-3.
               10  CURRENCY-CODE PIC X(3).
           05  STATE PIC X.
               88  PAID VALUE "p".
           05  GRÖSSE PIC X(2).
