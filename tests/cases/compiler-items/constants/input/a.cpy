       78  WIDTH                   VALUE 5.
       78  TITLE-TEXT              VALUE IS "abc".
       01  ROWS CONSTANT AS 3.
       78  TOTAL                   VALUE WIDTH * 2 + ROWS - 1.
       01  REC.
           05  A                   PIC X(WIDTH) OCCURS ROWS TIMES.
           05  B                   PIC X(rows) VALUE TITLE-TEXT.
           05  C                   PIC 9(Rows)V9(2) VALUE WIDTH.
               88  C-MAX           VALUE TOTAL ROWS THRU WIDTH.
       78  LATE                    VALUE 4.
           05  C-2                 PIC 9.
           05  D                   PIC X OCCURS 0 TO LATE
                                   DEPENDING ON C-2.
