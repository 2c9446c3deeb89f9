           COPY M15.
