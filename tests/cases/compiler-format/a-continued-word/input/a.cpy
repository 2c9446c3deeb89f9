       01  CUSTOMER-
      -    NUMBER                  PIC 9
      *    a comment in between
      -       (6).
       01  B                       PIC X.
