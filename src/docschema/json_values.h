// The texts of items as JSON Schema.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "docschema/value_type.h"

namespace fdmorph::docschema {

/// The schema of a value whose text is of one of `types`, which are not empty, or
/// that may be an empty string as well.
[[nodiscard]] nlohmann::ordered_json jsonValueOf(std::vector<ValueType> const& types,
                                                 bool mayLackText, SchemaRules const& rules);

/// A schema of what any of `alternatives` allows; they are not empty.
[[nodiscard]] nlohmann::ordered_json jsonAnyOf(std::vector<nlohmann::ordered_json> alternatives);

}  // namespace fdmorph::docschema
