// Enumerated values of a type and the level 88 items of an item.
#pragma once

#include <string>
#include <vector>

#include "semantics/data_item.h"

namespace fdmorph::fit {

struct EnumerationDifference {
  std::vector<std::string> withoutCondition;  ///< values that no level 88 has
  std::vector<std::string> withoutValue;      ///< single values of level 88 that are not allowed
};

/// Compares the values with the conditions of `owners`, the item and groups with its
/// text. Nothing differs if there are no conditions. Ranges of conditions only have
/// values; they are not enumerated.
[[nodiscard]] EnumerationDifference compareEnumeration(
    std::vector<std::string> const& values, std::vector<compiler::DataItem const*> const& owners);

/// The first of the values in quotes, for a message.
[[nodiscard]] std::string listOf(std::vector<std::string> const& values);

}  // namespace fdmorph::fit
