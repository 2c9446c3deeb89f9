           COPY M27.
