// The kinds of schema elements, by the local part of their names.
#pragma once

#include "xml/DMXMLElement.h"

namespace fdmorph {

/// The kind of an element of a schema document (XML Schema: Structures).
enum class SchemaElementKind {
  schema = 0,
  element = 1,
  attribute = 2,
  attributeGroup = 3,
  simpleType = 4,
  enumeration = 5,
  group = 6,
  complexType = 7,
  simpleContent = 8,
  complexContent = 9,
  extension = 10,
  restriction = 11,
  sequence = 12,
  choice = 13,
  unionOf = 14,
  list = 15,
  all = 16,
  any = 17,
  unique = 18,
  anyAttribute = 19,
  appInfo = 20,
  key = 21,
  keyRef = 22,
  selector = 23,
  field = 24,
  import = 25,
  include = 26,
  redefine = 27,
  other = 28,
};

/// The kind of `element`. "appInfo" and "keyRef" are known in this spelling
/// only.
SchemaElementKind schemaElementKind(CDMXMLElement const* element);

/// The same for the conversion to COBOL. It has no enumerator for enumerations,
/// so from `group` on the values are one lower than those of
/// SchemaElementKind. The two must not be mixed up.
enum class GeneratorElementKind {
  schema = 0,
  element = 1,
  attribute = 2,
  attributeGroup = 3,
  simpleType = 4,
  group = 5,
  complexType = 6,
  simpleContent = 7,
  complexContent = 8,
  extension = 9,
  restriction = 10,
  sequence = 11,
  choice = 12,
  unionOf = 13,
  list = 14,
  all = 15,
  any = 16,
  unique = 17,
  anyAttribute = 18,
  appInfo = 19,
  key = 20,
  keyRef = 21,
  selector = 22,
  field = 23,
  import = 24,
  include = 25,
  redefine = 26,
  other = 27,
};

/// The kind of `element`. An enumeration is `other`.
GeneratorElementKind generatorElementKind(CDMXMLElement const* element);

}  // namespace fdmorph
