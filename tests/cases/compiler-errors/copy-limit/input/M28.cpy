           COPY M29.
