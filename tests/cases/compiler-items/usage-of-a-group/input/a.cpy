       01  REC                     USAGE COMP-3.
           05  A                   PIC 9(5).
           05  G.
               10  B               PIC S9(4).
           05  H                   OCCURS 2 USAGE IS COMP-3.
               10  C               PIC 9.
       01  NEXT-REC.
           05  D                   PIC 9(5).
