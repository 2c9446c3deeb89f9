           COPY M4.
