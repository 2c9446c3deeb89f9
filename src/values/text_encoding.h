// Texts as stored characters.
#pragma once

#include <string_view>

#include "values/values.h"

namespace fdmorph::values {

/// What is stored for characters that the encoding lacks, and of texts that are too
/// long.
struct TextRules {
  charset::CodePage const* page;
  TextBytes const* table;  ///< of the same character set
  int unmappable = -1;     ///< the byte for characters that the encoding lacks; -1: an error
  bool truncates = false;
};

/// Writes a text item: the characters, and blanks up to its size.
[[nodiscard]] EncodeResult encodeText(ItemFormat const& format, std::string_view text,
                                      TextRules const& rules, unsigned char* bytes);

/// The same in UTF-16.
[[nodiscard]] EncodeResult encodeNational(ItemFormat const& format, std::string_view text,
                                          bool truncates, unsigned char* bytes);

}  // namespace fdmorph::values
