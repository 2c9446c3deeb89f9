// Decimal numbers as texts of any length.
#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace fdmorph::fit {

/// A decimal number without leading zeros before and trailing zeros after the point.
struct DecimalText {
  std::string integer;   ///< digits; empty for zero
  std::string fraction;  ///< the same
  bool isNegative = false;

  bool isZero() const { return integer.empty() && fraction.empty(); }
};

/// The number that `text` stands for by XML Schema: Datatypes, with blanks around it
/// allowed. Nothing if it is none, or has an exponent.
[[nodiscard]] std::optional<DecimalText> readDecimal(std::string_view text);

/// Compares the absolute values.
[[nodiscard]] std::strong_ordering compareMagnitudes(DecimalText const& left,
                                                     DecimalText const& right);

}  // namespace fdmorph::fit
