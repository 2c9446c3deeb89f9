// UTF-8, independent of the locale.
#pragma once

#include <string>
#include <string_view>

namespace fdmorph {

/// Whether a byte continues a UTF-8 character. Columns count the other bytes.
constexpr bool isUtf8Continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Whether a text is valid UTF-8 and consists of characters that XML 1.0 allows
/// and control characters.
[[nodiscard]] bool isUtf8(std::string_view text);

/// The length in bytes of the UTF-8 character at the beginning of `text`, which
/// is not empty; 0 if its first bytes are not such a character.
std::size_t utf8Length(std::string_view text);

/// Appends the UTF-8 form of a code point.
void appendUtf8(std::string& out, unsigned code);

}  // namespace fdmorph
