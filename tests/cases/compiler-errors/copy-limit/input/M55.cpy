           COPY M56.
