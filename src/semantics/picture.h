// The analysis of picture strings.
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
  std::size_t currencySize = 1;  ///< characters that the symbol stands for
};

/// What a picture says.
struct Picture {
  std::string text;  ///< as written, with the values of constants in their place
  Category category = Category::alphanumeric;
  std::uint64_t size = 0;    ///< character positions
  std::uint32_t nines = 0;   ///< digits that are stored
  std::uint32_t digits = 0;  ///< of the number: nines and scaling positions
  std::uint32_t scale = 0;   ///< of these behind the decimal point
  bool isSigned = false;
  bool isBoolean = false;  ///< made of the symbol 1

  bool isValid() const { return errors.empty(); }
  std::vector<std::string> errors;
  std::vector<std::string> warnings;
};

/// The value of a constant by its name, if there is one.
using ConstantLookup = std::function<std::optional<std::uint64_t>(std::string_view)>;

/// Most digits of a number.
inline constexpr std::uint32_t kMaxDigits = 38;

Picture analysePicture(std::string_view text, PictureRules rules, ConstantLookup const& constant);

/// A symbol and how often it stands there. CR and DB are 'C' and 'D', the
/// currency sign is '$' and the decimal point '.', whatever the program calls
/// them.
struct PictureRun {
  char symbol;
  std::uint64_t count;
};

struct PictureRuns {
  std::string text;  ///< with constants resolved
  std::vector<PictureRun> runs;
  std::vector<std::string> errors;
};

PictureRuns readPictureRuns(std::string_view text, PictureRules rules,
                            ConstantLookup const& constant);

}  // namespace fdmorph::compiler
