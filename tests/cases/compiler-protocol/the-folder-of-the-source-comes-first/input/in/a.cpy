       01  REC.
           COPY CODE1.
