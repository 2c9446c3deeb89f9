           COPY M45.
