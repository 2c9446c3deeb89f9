           05  A                   PIC X.
           COPY INNER.
           05  C                   PIC X.
