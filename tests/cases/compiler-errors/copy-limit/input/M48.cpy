           COPY M49.
