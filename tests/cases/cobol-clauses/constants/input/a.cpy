       78  SIZE-OF-NAME            VALUE 20.
       01  ROWS CONSTANT AS 3.
       01  REC.
           05  NAME                PIC X(SIZE-OF-NAME).
           05  CODE-1              PIC 9 OCCURS ROWS TIMES VALUE ROWS.
