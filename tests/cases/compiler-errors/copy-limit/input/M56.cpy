           COPY M57.
