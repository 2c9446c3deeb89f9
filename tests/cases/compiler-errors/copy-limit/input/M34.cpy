           COPY M35.
