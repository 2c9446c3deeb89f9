// What the options say about stored bytes and their texts.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "charset/code_page.h"
#include "semantics/usage.h"

namespace fdmorph::values {

enum class FloatForm : std::uint8_t { ibm, ieeeBig, ieeeLittle };

/// How a zoned number has its sign in the byte of a digit.
enum class SignTable : std::uint8_t {
  ebcdic,     ///< in the zone: C, F, A and E for positive, D and B for negative
  gnuCobol,   ///< x'30' to x'39' are positive, x'70' to x'79' negative
  overpunch,  ///< the ASCII characters {A-I are positive, }J-R negative
};

/// What a text is without.
enum class Trim : std::uint8_t {
  right,  ///< blanks and x'00' at the end
  both,   ///< and blanks at the beginning
  none,   ///< x'00' at the end only
};

/// What becomes of characters that XML 1.0 forbids.
enum class Controls : std::uint8_t { refuse, replace, drop };

/// What blanks in numbers are.
enum class BlankNumbers : std::uint8_t {
  refuse,   ///< an error
  leading,  ///< zeros before the first digit
  zero,     ///< zero, if all bytes are blanks or x'00'
  omit,     ///< no number, if all bytes are blanks or x'00'
};

/// What becomes of digits below the last stored position.
enum class Rounding : std::uint8_t { refuse, halfUp, truncate };

struct Conventions {
  std::shared_ptr<charset::CodePage const> codePage;
  FloatForm floats = FloatForm::ieeeLittle;
  SignTable signs = SignTable::gnuCobol;
  bool isBinaryBigEndian = true;   ///< COMP, COMP-4, BINARY and COMP-X
  bool isNativeBigEndian = false;  ///< COMP-5, COMP-N, usages without a picture, and counts
  bool isNationalBigEndian = false;
  Trim trim = Trim::right;
  Controls controls = Controls::refuse;
  BlankNumbers blankNumbers = BlankNumbers::refuse;
  bool hasStrictZones = false;      ///< every zone of a zoned number is checked
  bool hasFullBinaryRange = false;  ///< COMP holds what its bytes hold, whatever its picture is
  bool hasEditedNumbers = false;    ///< numeric-edited items are numbers, not texts
  Rounding rounding = Rounding::refuse;
  bool truncates = false;                   ///< texts that are too long are cut
  std::optional<char32_t> unmappable = {};  ///< for characters that the encoding lacks
};

/// Conventions, or why there are none.
struct ConventionsResult {
  Conventions conventions;
  std::string error;  ///< of the usage; empty if there is none
};

/// The default conventions of a dialect for data in `codePage`. `signs` replaces
/// the sign table; one of the other family is an error.
[[nodiscard]] ConventionsResult makeConventions(compiler::Dialect dialect,
                                                std::shared_ptr<charset::CodePage const> codePage,
                                                std::optional<SignTable> signs = {});

/// The name of a sign table in options.
[[nodiscard]] std::string_view nameOf(SignTable table);

}  // namespace fdmorph::values
