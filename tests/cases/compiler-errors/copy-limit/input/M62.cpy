           COPY M63.
