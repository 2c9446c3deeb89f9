       01  REC.
           COPY ONE.
           COPY Two.
           COPY three.
           COPY FOUR.
