           COPY M33.
