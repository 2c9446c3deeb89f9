       *> an address without a record of its own
       05  STREET                  PIC X(30).
       05  GEO.
           10  LATITUDE            PIC S9(2)V9(4) SIGN LEADING SEPARATE.
           10                      PIC X(4).
       05  PHONE                   PIC 9(10) OCCURS 2.
       01  NEXT-REC.
           05  A                   COMP-1.
