           COPY M26.
