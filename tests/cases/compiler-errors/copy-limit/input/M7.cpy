           COPY M8.
