           COPY M19.
