// The kinds of schema elements as the conversion tells them apart.
#pragma once

#include "xml/DMXMLElement.h"

namespace fdmorph {

/// Like SchemaElementKind, but without an enumeration, so from `group` on the
/// values run one lower. The two must not be confused.
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

/// The kind of `element` by the local part of its name.
GeneratorElementKind generatorElementKind(CDMXMLElement const* element);

}  // namespace fdmorph
