// What literals stand for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "compiler/data_item.h"

namespace fdmorph::compiler {

/// The content of a literal in quotes.
struct LiteralContent {
  std::string text;  ///< in UTF-8 where the source is
  std::size_t characters = 0;
  bool isNumber = false;  ///< H"..": the text is a number
};

/// Takes quotes and prefix off a literal, undoes doubled quotes and decodes
/// hexadecimal ones.
LiteralContent decodeLiteral(std::string_view literal);

/// Whether a literal has national characters: N".." or NX"..".
bool isNationalLiteral(std::string_view literal);

/// The literal with this content, in double quotes.
std::string quotedLiteral(std::string_view content);

/// The text of a value for an item of `size` characters, or for a number:
/// figurative constants as the characters that they stand for. One space is
/// any number of them, since values are filled up with spaces. Nothing for
/// values without characters, or with too many.
std::optional<std::string> valueText(Literal const& value, bool isNumber, std::uint64_t size);

}  // namespace fdmorph::compiler
