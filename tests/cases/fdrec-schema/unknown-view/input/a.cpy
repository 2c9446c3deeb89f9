       01 R.
          05 A PIC 9.
