       01  REC.
           05  A                   PIC
                                      X.
           05  FILLER              PIC X(9)
               VALUE SPACES.
           05  B                   PIC A(2)
               OCCURS 3
            *> a comment in between
               TIMES.
