           COPY M13.
