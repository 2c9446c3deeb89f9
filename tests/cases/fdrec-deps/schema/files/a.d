a.cpy: \
  a.xsd \
  catalog.xml \
  types/b.xsd \
  standards/c.xsd \
  @DIR@/d.xsd

a.xsd:

catalog.xml:

types/b.xsd:

standards/c.xsd:

@DIR@/d.xsd:
