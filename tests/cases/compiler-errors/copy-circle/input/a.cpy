       01  REC.
           COPY OUTER.
