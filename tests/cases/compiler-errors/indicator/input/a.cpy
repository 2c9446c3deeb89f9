       01  REC.
      7    05  A                   PIC X.
           05  B                   PIC X.
      #    05  C                   PIC Q.
