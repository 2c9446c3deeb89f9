           10  G.
               15  A               PIC X(2).
               15  B               PIC X OCCURS 2.
