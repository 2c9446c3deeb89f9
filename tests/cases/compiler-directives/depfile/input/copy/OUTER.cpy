           05  X PIC X.
           COPY INNER.
