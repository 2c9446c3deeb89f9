           COPY M61.
