               COPY NOWHERE.
