           COPY M51.
