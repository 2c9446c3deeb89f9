// What literals stand for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace fdmorph::compiler {

/// Bytes of the longest literal. Compilers take no longer ones.
inline constexpr std::size_t kMaxLiteralSize = 8191;

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

}  // namespace fdmorph::compiler
