// The content of literals in quotes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fdmorph::compiler {

/// The maximum length of a literal in bytes, that of other compilers.
inline constexpr std::size_t kMaxLiteralSize = 8191;

struct LiteralContent {
  std::string text;            ///< in UTF-8 where the source is
  std::size_t characters = 0;  ///< of the text
  bool isNumber = false;       ///< H".." and B"..": the text is a decimal number
  bool isBinary = false;       ///< has bytes that are not text
};

/// Removes the quotes and the prefix of a literal, replaces doubled quotes by
/// single ones and decodes hexadecimal digits.
[[nodiscard]] LiteralContent decodeLiteral(std::string_view literal);

/// Whether a literal has national characters: N"..", G"..", NX".." or GX"..".
bool isNationalLiteral(std::string_view literal);

/// X"..": a literal with these bytes.
std::string hexadecimalLiteral(std::string_view bytes);

/// A literal with this content, in double quotes.
std::string quotedLiteral(std::string_view content);

}  // namespace fdmorph::compiler
