           COPY M23.
