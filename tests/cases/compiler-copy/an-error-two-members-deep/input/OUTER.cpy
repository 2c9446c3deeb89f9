       01  REC.
           COPY INNER.
