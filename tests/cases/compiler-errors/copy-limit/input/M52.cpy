           COPY M53.
