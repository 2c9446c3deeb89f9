       01  REC.
           COPY NOWHERE.
       01  REC-2.
           05  G.
               COPY PART.
