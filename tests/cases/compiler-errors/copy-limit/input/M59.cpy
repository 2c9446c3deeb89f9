           COPY M60.
