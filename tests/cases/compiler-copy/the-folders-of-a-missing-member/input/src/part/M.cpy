           COPY NOWHERE.
           COPY "/no/where".
