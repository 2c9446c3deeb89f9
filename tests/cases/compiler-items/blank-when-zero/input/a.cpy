       01  REC.
           05  A                   PIC ZZ9 BLANK WHEN ZERO.
           05  B                   PIC 9(4)V9 BLANK ZEROS.
           05  C                   BLANK WHEN ZEROES PIC 9.
