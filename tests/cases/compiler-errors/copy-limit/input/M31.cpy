           COPY M32.
