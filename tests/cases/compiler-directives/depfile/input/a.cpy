       01  A.
           COPY OUTER.
           COPY INNER REPLACING B BY C.
