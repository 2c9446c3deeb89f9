           COPY M44.
