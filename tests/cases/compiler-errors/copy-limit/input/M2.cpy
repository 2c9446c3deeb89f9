           COPY M3.
