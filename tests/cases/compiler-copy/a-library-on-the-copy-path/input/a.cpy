       01  REC.
           COPY PART OF ONE.
