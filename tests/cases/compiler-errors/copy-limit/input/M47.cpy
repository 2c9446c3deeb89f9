           COPY M48.
