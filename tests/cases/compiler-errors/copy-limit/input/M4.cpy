           COPY M5.
