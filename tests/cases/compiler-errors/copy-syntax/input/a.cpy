       01  REC.
           COPY .
           COPY PART
           05  A                   PIC X.
           COPY PART REPLACING ==B== WITH ==C==.
           05  E                   PIC X.
           COPY PART REPLACING .
           05  G                   PIC X.
