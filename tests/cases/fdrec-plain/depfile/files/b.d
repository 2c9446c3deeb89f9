b.cpy: \
  a.cpy \
  B.cpy

a.cpy:

B.cpy:
