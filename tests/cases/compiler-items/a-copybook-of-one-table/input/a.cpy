       05  A                       PIC X(2) OCCURS 3.
