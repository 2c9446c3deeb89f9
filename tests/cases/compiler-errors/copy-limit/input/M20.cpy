           COPY M21.
