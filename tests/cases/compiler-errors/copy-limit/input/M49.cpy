           COPY M50.
