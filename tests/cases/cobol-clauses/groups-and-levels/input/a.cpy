       01  REC.
           05  HEAD.
               10  KIND            PIC X.
               10  NOTE.
                   49  LINE-1      PIC X(2).
           05  FILLER.
               10  PLACE           PIC X(3).
           05  FILLER              PIC X(4).
           05                      PIC X(5).
