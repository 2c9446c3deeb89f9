           COPY "part/M".
