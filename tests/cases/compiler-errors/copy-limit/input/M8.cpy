           COPY M9.
