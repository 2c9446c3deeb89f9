#include "schema/element_kind.h"

#include <algorithm>
#include <array>

namespace fdmorph {
namespace {

struct KindName {
  std::string_view name;
  SchemaElementKind kind;
};

// Sorted by name, for the binary search.
constexpr std::array<KindName, 28> kKindNames{{
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
}};

constexpr bool byName(KindName const& left, KindName const& right) {
  return left.name < right.name;
}
static_assert(std::is_sorted(kKindNames.begin(), kKindNames.end(), byName));

}  // namespace

SchemaElementKind schemaElementKind(std::string_view localName) {
  auto found = std::lower_bound(kKindNames.begin(), kKindNames.end(),
                                KindName{localName, SchemaElementKind::other}, byName);
  bool isKnown = found != kKindNames.end() && found->name == localName;
  return isKnown ? found->kind : SchemaElementKind::other;
}

}  // namespace fdmorph
