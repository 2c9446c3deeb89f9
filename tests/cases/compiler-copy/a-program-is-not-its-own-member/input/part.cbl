       01  REC.
           COPY PART.
