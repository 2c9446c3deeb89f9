           COPY M6.
