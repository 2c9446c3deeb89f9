one
two

