// The texts that an elementary item has in documents.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "docschema/schema_rules.h"

namespace fdmorph::docschema {

/// The texts of one item.
struct ValueType {
  enum class Kind : std::uint8_t {
    text,
    number,       ///< decimal digits, with a point if the scale is not 0
    singleFloat,  ///< COMP-1
    doubleFloat,  ///< COMP-2
    anyNumber,    ///< of a picture with an exponent, as it is edited
  };

  Kind kind = Kind::text;
  std::uint64_t length = 0;  ///< of texts, the most characters

  // Of numbers.
  std::uint32_t digits = 0;  ///< scaling positions included; 0 if `least` and `most` hold
  std::uint32_t scale = 0;   ///< digits after the point
  std::uint32_t zeros = 0;   ///< scaling positions before the point, which are always 0
  bool isSigned = false;
  std::string least;  ///< the bounds of the bytes; empty if the digits are the bounds
  std::string most;

  std::vector<std::string> values;  ///< if not empty, the only texts
  bool isHexadecimal = false;       ///< of floats: without NaN and infinities

  bool operator==(ValueType const&) const = default;

  bool isFloat() const { return kind == Kind::singleFloat || kind == Kind::doubleFloat; }

  /// The number of digits that a text may have before the point, and in all.
  [[nodiscard]] std::uint64_t integerDigits() const;
  [[nodiscard]] std::uint64_t textDigits() const { return integerDigits() + scale; }

  /// A regular expression for the texts of a number, without anchors. It holds in XML
  /// Schema and in ECMA-262.
  [[nodiscard]] std::string pattern() const;
};

/// The type of an elementary item with a size.
[[nodiscard]] ValueType valueTypeOf(compiler::DataItem const& item, SchemaRules const& rules);

/// Whether blanks may stand for a number that is not there.
[[nodiscard]] bool isBlankable(compiler::DataItem const& item);

}  // namespace fdmorph::docschema
