           COPY M7.
