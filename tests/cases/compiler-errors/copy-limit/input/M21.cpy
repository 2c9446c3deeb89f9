           COPY M22.
