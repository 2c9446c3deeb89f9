#include "cobol/builtin_types.h"

#include "text/name_table.h"

namespace fdmorph {
namespace {

using enum BuiltinTypeClass;

constexpr auto kBuiltinTypes = makeNameTable<BuiltinTypeClass>({
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
});
static_assert(kBuiltinTypes.isSorted());

}  // namespace

BuiltinTypeClass builtinTypeClass(std::string_view localName) {
  return kBuiltinTypes.find(localName, unknown);
}

}  // namespace fdmorph
