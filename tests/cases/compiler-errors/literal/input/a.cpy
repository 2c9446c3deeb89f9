       01  REC.
           05  A                   PIC X(8) VALUE "open.
           05  B                   PIC X(8) VALUE 'it''s open'' .
           05  C                   PIC X(2) VALUE X"4G".
           05  D                   PIC X(2) VALUE X"414".
           05  E                   PIC N(2) VALUE NX"0041 0042".
           05  F                   PIC X.
               88  F-1             VALUE "a" THRU "b.
           05  H                   PIC X(6) VALUE "a" & N"b".
