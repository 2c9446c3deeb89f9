// Pictures that hold the values of a type.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "fit/value_rules.h"

namespace fdmorph::fit {

/// A picture and usage in place of those of an item.
struct NewPicture {
  std::string picture;                   ///< empty for a usage that goes without
  std::optional<compiler::Usage> usage;  ///< nothing: as it was
};

/// The characters of an item for texts without a bound.
inline constexpr std::uint64_t kDefaultLength = 80;

/// The picture with which the item holds whatever is bounded in `demands`, all types
/// whose values it takes. It holds what it held before. Without a bound, texts get as
/// many characters as `limits` says, or stay as they are. Nothing if the item holds it
/// all, and has the wanted length.
///
/// A number becomes a text if its digits are more than COBOL has, and a binary number
/// becomes a packed one if they are more than 18.
[[nodiscard]] std::optional<NewPicture> repairedPicture(
    compiler::DataItem const& item, ItemCapacity const& capacity,
    std::vector<ValueDemand const*> const& demands, FitLimits const& limits);

}  // namespace fdmorph::fit
