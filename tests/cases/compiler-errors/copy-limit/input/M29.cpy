           COPY M30.
