       01  REC.
           COPY INNER.
           05  :T:-B               PIC X(2).
