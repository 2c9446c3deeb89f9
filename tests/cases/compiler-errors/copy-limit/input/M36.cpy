           COPY M37.
