       01  A                       PIC S9(18) COMP.
       01  B                       PIC S9(19) COMP.
       01  C                       PIC 9(10)V9(9) COMP-5.
       01  D                       PIC 9(31) COMP-3.
       01  E                       PIC 9(31).
