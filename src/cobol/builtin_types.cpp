#include "cobol/builtin_types.h"

#include <algorithm>
#include <array>

namespace fdmorph {
namespace {

struct BuiltinType {
  std::string_view name;
  BuiltinTypeClass typeClass;
};

using enum BuiltinTypeClass;

// Sorted by name, for the binary search.
constexpr std::array<BuiltinType, 44> kBuiltinTypes{{
    {"CDATA", character},
    {"ENTITIES", list},
    {"ENTITY", character},
    {"ID", character},
    {"IDREF", character},
    {"IDREFS", list},
    {"NCName", character},
    {"NMTOKEN", character},
    {"NOTATION", character},
    {"Name", character},
    {"QName", character},
    {"anyURI", character},
    {"base64Binary", character},
    {"boolean", character},
    {"byte", signedInteger},
    {"date", character},
    {"dateTime", character},
    {"decimal", decimal},
    {"double", doublePrecision},
    {"duration", character},
    {"float", floatingPoint},
    {"gDay", character},
    {"gMonth", character},
    {"gMonthDay", character},
    {"gYear", character},
    {"gYearMonth", character},
    {"hexBinary", character},
    {"int", signedInteger},
    {"integer", signedInteger},
    {"language", character},
    {"long", signedInteger},
    {"negativeInteger", signedInteger},
    {"nonNegativeInteger", unsignedInteger},
    {"nonPositiveInteger", signedInteger},
    {"normalizedString", character},
    {"positiveInteger", unsignedInteger},
    {"short", signedInteger},
    {"string", character},
    {"time", character},
    {"token", character},
    {"unsignedByte", unsignedInteger},
    {"unsignedInt", unsignedInteger},
    {"unsignedLong", unsignedInteger},
    {"unsignedShort", unsignedInteger},
}};

constexpr bool byName(BuiltinType const& left, BuiltinType const& right) {
  return left.name < right.name;
}
static_assert(std::is_sorted(kBuiltinTypes.begin(), kBuiltinTypes.end(), byName));

}  // namespace

BuiltinTypeClass builtinTypeClass(std::string_view localName) {
  auto found = std::lower_bound(kBuiltinTypes.begin(), kBuiltinTypes.end(),
                                BuiltinType{localName, unknown}, byName);
  bool isKnown = found != kBuiltinTypes.end() && found->name == localName;
  return isKnown ? found->typeClass : unknown;
}

}  // namespace fdmorph
