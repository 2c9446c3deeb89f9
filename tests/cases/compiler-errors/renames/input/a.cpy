       01  REC.
           05  A                   PIC X.
           05  B                   PIC X OCCURS 2.
           05  C.
               10  D               PIC X.
               10  E               PIC X.
           05  F                   PIC X.
               88  F-1             VALUE "f".
       66  R1 RENAMES NOWHERE.
       66  R2 RENAMES REC.
       66  R3 RENAMES B.
       66  R4 RENAMES F THRU A.
       66  R5 RENAMES F-1.
       66  R6.
       66  R7 RENAMES A THRU NOWHERE.
       66  R8 RENAMES D.
       66  R9 RENAMES R8.
       66  R10 RENAMES A THRU C.
       01  OTHER.
           05  D                   PIC X.
       66  R11 RENAMES A.
