       01  HEAD.
           05  N                   PIC 9.
           05  ODD                 PIC 9V9.
           05  TEXT-1              PIC X.
           05  EDITED              PIC Z9.
           05  G.
               10  IN-G            PIC 9.
           05  TABLE-1             OCCURS 3.
               10  IN-TABLE        PIC 9.
           05  FLOAT-1             COMP-1.
       01  HEAD-2.
           05  N                   PIC 9.
               88  N-1             VALUE 1.
       01  REC.
           05  A PIC X OCCURS 1 TO 3 DEPENDING ON NOWHERE.
           05  B PIC X OCCURS 1 TO 3 DEPENDING ON N.
           05  C PIC X OCCURS 1 TO 3 DEPENDING ON N OF HEAD.
           05  D PIC X OCCURS 1 TO 3 DEPENDING ON ODD.
           05  E PIC X OCCURS 1 TO 3 DEPENDING ON TEXT-1.
           05  F PIC X OCCURS 1 TO 3 DEPENDING ON EDITED.
           05  H PIC X OCCURS 1 TO 3 DEPENDING ON G.
           05  I PIC X OCCURS 1 TO 3 DEPENDING ON IN-G OF HEAD.
           05  J PIC X OCCURS 1 TO 3 DEPENDING ON IN-TABLE.
           05  K PIC X OCCURS 1 TO 3 DEPENDING ON FLOAT-1.
           05  L PIC X OCCURS 1 TO 3 DEPENDING ON N-1.
           05  M PIC X OCCURS 1 TO 3 DEPENDING ON IN-G OF HEAD-2.
           05  O OCCURS 1 TO 3 DEPENDING ON IN-O.
               10  IN-O            PIC 9.
