       01  REC.
           05  A                   PIC X(2).
           05  B                   PIC 9(3)V9 COMP-3.
           05  G.
               10  C               PIC X(4).
               10  D               PIC S9(2).
       66  R1 RENAMES A THRU C.
       66  R2 RENAMES B THROUGH D OF G.
       66  R3 RENAMES G.
       66  R4 RENAMES B.
       66  R5 RENAMES C OF REC.
       01  NEXT-REC                PIC X.
