       01  R.
           05  A PIC 9 COMP.
           05  B PIC S9(5) COMP-5.
           05  C PIC 9(7) COMP-X.
           05  P POINTER.
           05  I INDEX.
