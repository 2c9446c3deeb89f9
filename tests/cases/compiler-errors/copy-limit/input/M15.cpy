           COPY M16.
