       01 R IDENTIFIED BY "r".
          05 A IDENTIFIED BY "a" NAMESPACE IS "urn:a".
