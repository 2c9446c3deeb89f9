       01  A.
           COPY B.
