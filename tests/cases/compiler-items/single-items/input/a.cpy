       77  A                       PIC X(2).
       01  B                       PIC 9(3) VALUE 5.
       77  C                       COMP-1.
