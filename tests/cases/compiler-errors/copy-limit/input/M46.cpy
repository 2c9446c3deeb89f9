           COPY M47.
