       COPY PART REPLACING LEADING ==OLD-== BY ==NEW-==
                           TRAILING ==-IN== BY ====.
