// What the values of a simple type need of an item.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fit/decimal_text.h"
#include "xml/schema_components.h"

namespace fdmorph::fit {

/// The needs of all values of one type that is no union. Lengths and digits without a
/// value have no bound.
///
/// Numbers count in their canonical form: no leading zeros and no plus sign. Dates
/// and times have years of four digits, whole seconds and a time zone.
struct ValueDemand {
  SimpleType const* type = nullptr;
  ValueKind kind = ValueKind::text;
  std::optional<std::uint64_t> length;  ///< of the longest text, in characters

  // Of numbers, and of enumerations of which each value is a number.
  bool isNumber = false;
  std::optional<std::uint64_t> integerDigits;
  std::optional<std::uint64_t> fractionDigits;
  bool isNegative = false;
  std::optional<DecimalText> most;   ///< the largest positive value; nothing if it is unbounded
  std::optional<DecimalText> least;  ///< the largest negative value, the same
};

/// The needs of a type: one for each member of a union, members of members included.
[[nodiscard]] std::vector<ValueDemand> demandsOf(SimpleType const& type);

/// A type in words: "decimal, 18 digits, 5 of them decimals".
[[nodiscard]] std::string describe(SimpleType const& type);

}  // namespace fdmorph::fit
