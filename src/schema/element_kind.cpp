#include "schema/element_kind.h"

#include "text/name_table.h"

namespace fdmorph {
namespace {

constexpr auto kKindNames = makeNameTable<SchemaElementKind>({
    {"all", SchemaElementKind::all},
    {"any", SchemaElementKind::any},
    {"anyAttribute", SchemaElementKind::anyAttribute},
    {"appInfo", SchemaElementKind::appInfo},
    {"attribute", SchemaElementKind::attribute},
    {"attributeGroup", SchemaElementKind::attributeGroup},
    {"choice", SchemaElementKind::choice},
    {"complexContent", SchemaElementKind::complexContent},
    {"complexType", SchemaElementKind::complexType},
    {"element", SchemaElementKind::element},
    {"enumeration", SchemaElementKind::enumeration},
    {"extension", SchemaElementKind::extension},
    {"field", SchemaElementKind::field},
    {"group", SchemaElementKind::group},
    {"import", SchemaElementKind::import},
    {"include", SchemaElementKind::include},
    {"key", SchemaElementKind::key},
    {"keyRef", SchemaElementKind::keyRef},
    {"list", SchemaElementKind::list},
    {"redefine", SchemaElementKind::redefine},
    {"restriction", SchemaElementKind::restriction},
    {"schema", SchemaElementKind::schema},
    {"selector", SchemaElementKind::selector},
    {"sequence", SchemaElementKind::sequence},
    {"simpleContent", SchemaElementKind::simpleContent},
    {"simpleType", SchemaElementKind::simpleType},
    {"union", SchemaElementKind::unionOf},
    {"unique", SchemaElementKind::unique},
});
static_assert(kKindNames.isSorted());

}  // namespace

SchemaElementKind schemaElementKind(CDMXMLElement const* element) {
  return kKindNames.find(CDMXMLNode::getNonQualifiedName(element->name), SchemaElementKind::other);
}

GeneratorElementKind generatorElementKind(CDMXMLElement const* element) {
  SchemaElementKind kind = schemaElementKind(element);
  if (kind == SchemaElementKind::enumeration) return GeneratorElementKind::other;
  int value = static_cast<int>(kind);
  return static_cast<GeneratorElementKind>(kind < SchemaElementKind::enumeration ? value
                                                                                 : value - 1);
}

}  // namespace fdmorph
