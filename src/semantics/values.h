// The literals of VALUE clauses as texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "semantics/data_item.h"

namespace fdmorph::compiler {

/// The item that a value is for.
struct ValueTarget {
  bool isNumber = false;    ///< its values are written without quotes
  bool isWhole = true;      ///< it has no digits after the decimal point
  bool isNational = false;  ///< `size` is in characters, not in bytes
  bool isBoolean = false;   ///< its picture is made of the symbol 1
  std::uint64_t size = 0;   ///< for values that fill the item
};

/// The text of a value, with figurative constants as the characters that they
/// stand for. SPACE is one space, since values are padded with spaces. Returns
/// nothing for values that have no characters or too many, or are not a number
/// where the item is.
[[nodiscard]] std::optional<std::string> valueText(Literal const& value, ValueTarget const& target);

}  // namespace fdmorph::compiler
