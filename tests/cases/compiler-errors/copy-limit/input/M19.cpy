           COPY M20.
