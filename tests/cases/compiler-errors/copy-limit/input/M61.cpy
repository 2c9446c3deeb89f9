           COPY M62.
