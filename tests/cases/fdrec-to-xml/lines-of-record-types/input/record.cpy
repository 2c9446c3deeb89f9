       01  FIRST.
           05  X PIC X(3).
           05  K PIC X.
       01  OTHER.
           05  X PIC X(3).
           05  K PIC X.
           05  Z PIC X(2).
