// Decimal numbers as texts.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "values/item_format.h"
#include "values/values.h"

namespace fdmorph::values {

/// Room for the digits of a number as characters, and for copies of fixed size
/// from any of them.
using DigitText = std::array<char, 96>;

/// The size of the largest text of a number, with room for copies of fixed size.
inline constexpr std::size_t kMaxNumberText = 160;

/// Writes a number: `-` if it is below zero, integer digits without leading zeros
/// but at least one, and `scale` decimal places if that is above zero. The digits
/// begin at `first` of `digits`. Returns the end.
char* writeNumber(char* out, DigitText const& digits, unsigned first, unsigned count, int scale,
                  bool isNegative);

/// The same with digits in a row of at most 16 (see number_bytes.h), for a scale of 0
/// to 16. It may write 24 bytes beyond the end.
char* writeRow(char* out, std::uint64_t row, int scale, bool isNegative);

/// A number in a text as a row of digits, if it is a plain one that an item has room
/// for: without blanks and exponent, and without more decimal places than the scale.
struct TextRow {
  std::uint64_t row = 0;
  bool isNegative = false;
};

/// Nothing for all other texts, which may or may not be numbers.
[[nodiscard]] std::optional<TextRow> readRow(std::string_view text, unsigned digits, int scale);

/// The digits that an item stores of a number.
struct StoredDigits {
  std::array<std::uint8_t, kMaxStoredDigits> digits{};  ///< 0 to 9, the first `count`
  unsigned count = 0;
  bool isNegative = false;              ///< zero is not
  bool isZero = true;                   ///< all digits are
  bool isPrecisionLost = false;         ///< there are digits below the last one, and no rounding
  ValueError error = ValueError::none;  ///< number or overflow
};

/// Takes from a text the digits for an item with so many digits and this scale. A
/// negative number is an overflow unless `isSigned`.
[[nodiscard]] StoredDigits storeDigits(std::string_view text, ItemFormat const& format,
                                       Rounding rounding, NumberSyntax syntax);

/// A decimal number in a text. Its digits are those of `integer` and `fraction`
/// in a row.
struct DecimalText {
  std::string_view integer;
  std::string_view fraction;
  std::int64_t exponent = 0;
  bool isNegative = false;
};

/// Reads a number with blanks, TAB, LF and CR around it; nothing if it is none.
[[nodiscard]] std::optional<DecimalText> readDecimal(std::string_view text, NumberSyntax syntax);

/// A text without blanks, TAB, LF and CR around it.
[[nodiscard]] std::string_view withoutBlanks(std::string_view text);

}  // namespace fdmorph::values
