one
two
