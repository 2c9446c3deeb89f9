           COPY M43.
