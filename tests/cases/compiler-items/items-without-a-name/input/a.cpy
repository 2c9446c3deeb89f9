       01  .
           05                      PIC X.
           05  FILLER              PIC X(2).
           05  Filler.
               10                  OCCURS 2 PIC 9.
           05  OCCURS 3.
               10  A               PIC X.
