// The kinds of schema elements, by the local part of their names.
#pragma once

#include <string_view>

namespace fdmorph {

/// What a schema document's element is (XML Schema Part 1: Structures).
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

/// The kind that a local name stands for. "appInfo" and "keyRef" are known in
/// this spelling only.
SchemaElementKind schemaElementKind(std::string_view localName);

}  // namespace fdmorph
