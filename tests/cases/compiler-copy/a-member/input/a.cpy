       01  REC.
           COPY FIRST-PART.
           05  B                   COPY CLAUSES. .
           COPY "parts/last.txt".
