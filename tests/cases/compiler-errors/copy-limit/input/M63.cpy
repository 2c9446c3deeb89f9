           COPY M64.
