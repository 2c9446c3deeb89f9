           COPY M31.
