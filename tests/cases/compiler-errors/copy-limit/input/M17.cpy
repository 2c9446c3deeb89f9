           COPY M18.
