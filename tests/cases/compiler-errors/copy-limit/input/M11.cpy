           COPY M12.
