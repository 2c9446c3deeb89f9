// The analysis of picture strings, a rule of COBOL 2002 each.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::compiler {

enum class Category : std::uint8_t {
  alphabetic,
  alphanumeric,
  alphanumericEdited,
  numeric,
  numericEdited,
  national,
  nationalEdited,
};

struct PictureRules {
  char currency = '$';
  bool isDecimalComma = false;
  std::size_t currencySize = 1;  ///< the length of the currency string
  /// The literal of the currency string, with its quotes, in the source; empty if
  /// the string is the symbol.
  std::string_view currencyString = {};
};

/// An analysed picture.
struct Picture {
  std::string text;  ///< as written, with constants replaced by their values
  Category category = Category::alphanumeric;
  std::uint64_t size = 0;    ///< in characters
  std::uint32_t nines = 0;   ///< the number of digits that are stored
  std::uint32_t digits = 0;  ///< the same with scaling positions
  std::uint32_t scale = 0;   ///< those of the digits that follow the decimal point
  bool isSigned = false;     ///< has the symbol S
  bool isBoolean = false;    ///< made of the symbol 1
  bool hasEmptyRun = false;  ///< a symbol is repeated zero times; allowed beside XML clauses
  PictureRules rules;        ///< those of the text

  bool isValid() const { return errors.empty(); }
  std::vector<std::string> errors;
  std::vector<std::string> warnings;
};

/// Finds the value of a constant by its name.
using ConstantLookup = std::function<std::optional<std::uint64_t>(std::string_view)>;

/// The maximum number of digits of a number.
inline constexpr std::uint32_t kMaxDigits = 38;

/// Analyses a picture string. `constant` is asked for names in parentheses; it may
/// be empty.
[[nodiscard]] Picture analysePicture(std::string_view text, PictureRules rules,
                                     ConstantLookup const& constant);

}  // namespace fdmorph::compiler
