// The texts of items as simple types of XML Schema.
#pragma once

#include <string>
#include <vector>

#include "docschema/markup.h"
#include "docschema/value_type.h"

namespace fdmorph::docschema {

/// A simple type: a type that XML Schema has, or a definition without a name.
struct SimpleType {
  std::string builtIn;  ///< "xs:float"; empty if it is defined
  Markup definition;    ///< xs:simpleType
};

/// The type of a text that is of one of `types`, which are not empty, or that may be
/// missing as well.
[[nodiscard]] SimpleType simpleTypeOf(std::vector<ValueType> const& types, bool mayLackText);

}  // namespace fdmorph::docschema
