           COPY M52.
