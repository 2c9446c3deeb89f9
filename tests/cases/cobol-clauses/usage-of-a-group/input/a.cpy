       01  REC.
           05  AMOUNTS USAGE IS COMP-3.
               10  NET             PIC S9(7)V99.
           05  OFFSETS SIGN LEADING SEPARATE.
               10  SHIFT           PIC S9(3).
