           COPY M55.
