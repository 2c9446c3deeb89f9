           COPY M11.
