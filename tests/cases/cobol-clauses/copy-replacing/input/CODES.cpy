           05  COUNTRY             PIC X(2).
