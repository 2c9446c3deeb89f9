       COPY PART REPLACING "old" BY "new"
                           10 BY 20
                           5 BY WIDTH
                           -1 BY +2.
