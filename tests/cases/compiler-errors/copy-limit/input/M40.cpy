           COPY M41.
