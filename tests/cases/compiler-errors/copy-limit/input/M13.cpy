           COPY M14.
