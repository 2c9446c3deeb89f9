       01  REC.
           COPY CODE1.
           COPY CODE2.
