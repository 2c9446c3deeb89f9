       01  REC.
           COPY PART.
           05  B                   PIC Q.
           COPY PART.
