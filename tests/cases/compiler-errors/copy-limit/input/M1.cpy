           COPY M2.
