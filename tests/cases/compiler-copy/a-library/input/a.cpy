       01  REC.
           COPY PART OF ONE.
           COPY PART IN TWO.
           COPY PART.
           COPY PART IN "lib/three".
