           COPY M58.
