           COPY M40.
