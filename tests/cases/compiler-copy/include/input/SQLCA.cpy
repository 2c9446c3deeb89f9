       01  SQLCODE                 PIC S9(9) COMP-5.
