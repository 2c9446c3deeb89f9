           COPY M36.
