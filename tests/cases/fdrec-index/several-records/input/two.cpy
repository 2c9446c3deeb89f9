       01  SHORT PIC X(2).
       01  LONG  PIC X(6).
