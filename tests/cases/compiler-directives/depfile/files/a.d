a.xml: \
  a.cpy \
  copy/OUTER.cpy \
  copy/INNER.cpy \
  a.dir

a.cpy:

copy/OUTER.cpy:

copy/INNER.cpy:

a.dir:
