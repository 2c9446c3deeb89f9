01 A.
   05 B PIC X(4).
