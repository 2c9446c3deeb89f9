       01 R.
          05 A PIC X(8).
          05 B PIC 9(2) OCCURS 2.
