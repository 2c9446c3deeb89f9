       01 thing identified by "thing".

