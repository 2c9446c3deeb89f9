// What literals stand for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "compiler/data_item.h"

namespace fdmorph::compiler {

/// Bytes of the longest literal. Compilers take no longer ones.
inline constexpr std::size_t kLongestLiteral = 8191;

/// The content of a literal in quotes.
struct LiteralContent {
  std::string text;  ///< in UTF-8 where the source is
  std::size_t characters = 0;
  bool isNumber = false;  ///< H"..": the text is a number
  bool isBinary = false;  ///< holds bytes that no text stands for
};

/// Takes quotes and prefix off a literal, undoes doubled quotes and decodes
/// hexadecimal ones.
LiteralContent decodeLiteral(std::string_view literal);

/// Whether a literal has national characters: N".." or NX"..".
bool isNationalLiteral(std::string_view literal);

/// The literal with this content, in double quotes.
std::string quotedLiteral(std::string_view content);

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
