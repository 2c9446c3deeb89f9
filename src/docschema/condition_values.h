// Level 88: the values of an item that have names.
#pragma once

#include <string>
#include <vector>

#include "docschema/value_type.h"

namespace fdmorph::docschema {

/// The texts of the values of all conditions of an item, each once, as documents have
/// them. Empty if the item has no conditions, or a range, or a value that is no text.
/// Values that the item cannot hold are left out.
[[nodiscard]] std::vector<std::string> conditionValues(compiler::DataItem const& item,
                                                       ValueType const& type, Trim trim);

/// The conditions of an item, each as a line: NAME: "A", "C" THRU "F". The text is in
/// the encoding of the source.
[[nodiscard]] std::vector<std::string> conditionLines(compiler::DataItem const& item);

}  // namespace fdmorph::docschema
