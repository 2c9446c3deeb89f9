           COPY M59.
