#include "docschema/simple_types.h"

#include <algorithm>

namespace fdmorph::docschema {
namespace {

using ValueKind = ValueType::Kind;

// The digits of a decimal number that libxml2 reads. Longer numbers are strings with
// a pattern.
constexpr std::uint64_t kMaxDecimalDigits = 24;

Markup restrictionOf(std::string_view base) {
  Markup restriction{"xs:restriction"};
  restriction.set("base", base);
  return restriction;
}

void addFacet(Markup& restriction, std::string_view name, std::string_view value) {
  restriction.add({std::string("xs:").append(name)}).set("value", value);
}

Markup numberRestriction(ValueType const& type) {
  if (type.textDigits() > kMaxDecimalDigits) {
    Markup restriction = restrictionOf("xs:string");
    if (type.values.empty()) addFacet(restriction, "pattern", type.pattern());
    return restriction;
  }
  Markup restriction = restrictionOf("xs:decimal");
  if (!type.values.empty()) return restriction;
  if (type.digits > 0) addFacet(restriction, "totalDigits", std::to_string(type.digits));
  addFacet(restriction, "fractionDigits", std::to_string(type.scale));
  if (!type.least.empty()) {
    addFacet(restriction, "minInclusive", type.least);
    addFacet(restriction, "maxInclusive", type.most);
  } else if (!type.isSigned) {
    addFacet(restriction, "minInclusive", "0");
  }
  return restriction;
}

SimpleType define(Markup content) {
  SimpleType type;
  type.definition = Markup{"xs:simpleType"};
  type.definition.add(std::move(content));
  return type;
}

SimpleType typeOf(ValueType const& type) {
  switch (type.kind) {
    case ValueKind::singleFloat:
      return {"xs:float", {}};
    case ValueKind::doubleFloat:
    case ValueKind::anyNumber:
      return {"xs:double", {}};
    case ValueKind::text:
    case ValueKind::number:
      break;
  }
  Markup restriction =
      type.kind == ValueKind::number ? numberRestriction(type) : restrictionOf("xs:string");
  if (type.kind == ValueKind::text && type.values.empty()) {
    addFacet(restriction, "maxLength", std::to_string(type.length));
  }
  for (std::string const& each : type.values) addFacet(restriction, "enumeration", each);
  return define(std::move(restriction));
}

}  // namespace

SimpleType simpleTypeOf(std::vector<ValueType> const& types, bool mayLackText) {
  bool const hasAnyText = std::ranges::any_of(types, [](ValueType const& each) {
    return each.kind == ValueKind::text && each.values.empty();
  });
  bool const needsEmpty = mayLackText && !hasAnyText;
  if (types.size() == 1 && !needsEmpty) return typeOf(types.front());
  std::string builtIns;
  Markup members{"xs:union"};
  for (ValueType const& each : types) {
    SimpleType member = typeOf(each);
    if (member.builtIn.empty()) {
      members.add(std::move(member.definition));
    } else {
      builtIns += (builtIns.empty() ? "" : " ") + member.builtIn;
    }
  }
  if (!builtIns.empty()) members.set("memberTypes", builtIns);
  if (needsEmpty) {
    Markup restriction = restrictionOf("xs:string");
    addFacet(restriction, "length", "0");
    members.add(define(std::move(restriction)).definition);
  }
  return define(std::move(members));
}

}  // namespace fdmorph::docschema
