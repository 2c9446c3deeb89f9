// The built-in types (XML Schema: Datatypes) that have a COBOL form.
#pragma once

#include <string_view>

namespace fdmorph {

/// The namespace of the schema language and of its built-in types.
inline constexpr std::string_view kSchemaNamespace = "http://www.w3.org/2001/XMLSchema";

enum class BuiltinTypeClass {
  unknown,    ///< not in the table
  list,       ///< in the table, but refused: a list has no COBOL form
  character,  ///< PIC X
  unsignedInteger,
  signedInteger,
  decimal,
  floatingPoint,
  doublePrecision,
};

/// The class of a local type name. "CDATA", which the schema language does
/// not define, counts as a character type.
BuiltinTypeClass builtinTypeClass(std::string_view localName);

}  // namespace fdmorph
