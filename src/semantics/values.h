// What the literals of VALUE clauses mean for an item.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "semantics/data_item.h"

namespace fdmorph::compiler {

/// What a value is for.
struct ValueTarget {
  bool isNumber = false;    ///< told without quotes: only what reads as a number
  bool isWhole = true;      ///< has no digits behind the decimal point
  bool isNational = false;  ///< `size` counts characters, and not bytes
  bool isBoolean = false;   ///< made of bits
  std::uint64_t size = 0;   ///< of the item, for values that fill it
};

/// The text of a value: figurative constants as the characters that they stand
/// for. One space is any number of them, since values are filled up with
/// spaces. Nothing for values without characters, with too many, or that an
/// item can't be told to have.
std::optional<std::string> valueText(Literal const& value, ValueTarget const& target);

}  // namespace fdmorph::compiler
