// Whether the values of a type fit into an item.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fit/finding.h"
#include "fit/item_capacity.h"
#include "fit/value_demand.h"

namespace fdmorph::fit {

/// What stands for "unbounded", if the user says so.
struct FitLimits {
  std::optional<std::uint64_t> occurrences;
  std::optional<std::uint64_t> length;  ///< characters
  bool areGiven = false;                ///< on purpose: a repair makes larger items smaller
};

struct ValueIssue {
  FindingCode code;
  std::string text;
};

/// What keeps values of `demand` from fitting; empty if all fit.
[[nodiscard]] std::vector<ValueIssue> compareValue(ValueDemand const& demand,
                                                   ItemCapacity const& capacity,
                                                   FitLimits const& limits);

/// Whether an issue is an error.
[[nodiscard]] bool isError(ValueIssue const& issue);

}  // namespace fdmorph::fit
