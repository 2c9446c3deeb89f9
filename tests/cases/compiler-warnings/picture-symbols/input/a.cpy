       01  A                       PIC SZ(3)9.
       01  B                       PIC S9(3).
       01  C                       PIC S9,999.
