           COPY M46.
