      * a comment ahead
       COPY OUTER.
