       01  REC.
           05  G1.
               COPY PART.
           05  G2.
               COPY PART.
