       01  REC.
           COPY PART REPLACING SIZE-A BY Q.
