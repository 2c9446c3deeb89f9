           COPY OUTER.
           05  B                   PIC X.
           COPY INNER.
