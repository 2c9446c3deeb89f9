           COPY M10.
