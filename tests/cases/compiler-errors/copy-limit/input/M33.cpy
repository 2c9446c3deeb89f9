           COPY M34.
