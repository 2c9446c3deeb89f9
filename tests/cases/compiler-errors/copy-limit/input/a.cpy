       01  REC.
           COPY M1.
           05  B                   PIC X.
