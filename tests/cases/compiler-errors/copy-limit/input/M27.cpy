           COPY M28.
