           COPY M42.
