       01  REC.
           05  A                   PIC 9(4)V9.
       66  R RENAMES A.
