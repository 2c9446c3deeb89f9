       01  REC.
           COPY ONE.
           COPY TWO.
           COPY THREE.
