           COPY M17.
