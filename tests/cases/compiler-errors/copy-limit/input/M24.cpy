           COPY M25.
