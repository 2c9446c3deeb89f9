           COPY M24.
