           COPY M39.
