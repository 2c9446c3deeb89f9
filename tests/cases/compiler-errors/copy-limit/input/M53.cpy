           COPY M54.
