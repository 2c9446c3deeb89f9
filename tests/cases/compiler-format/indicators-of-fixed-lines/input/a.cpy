       01  A                       PIC X.
      *01  STAR                    PIC X.
      /01  SLASH                   PIC X.
      D01  DEBUG-LINE              PIC X.
      d01  DEBUG-LINE-2            PIC X.
      Y01  OTHER                   PIC X.
       01  B                       PIC X(2).
