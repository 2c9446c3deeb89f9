       REPLACE ==B== BY ==C==.
       01  REC.
           COPY PART REPLACING A BY B.
