       01  HEAD.
           05  K PIC X.
           05  D PIC X(3).
       01  ITEM.
           05  K PIC X.
           05  Q PIC 9(3).
