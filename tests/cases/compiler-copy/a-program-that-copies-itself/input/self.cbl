           COPY SELF.
