// Single characters of UTF-8, as the standard defines them, and of XML 1.0.
#pragma once

#include <cstddef>

namespace fdmorph::values {

/// A character and the number of its bytes; 0 bytes if there is none.
struct Utf8Character {
  char32_t code = 0;
  std::size_t length = 0;
};

constexpr bool isSurrogate(char32_t code) {
  return code >= 0xD800 && code < 0xE000;
}

/// Whether XML 1.0 allows a character (XML 1.0, production 2).
constexpr bool isXmlCharacter(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return !isSurrogate(code) && code != 0xFFFE && code != 0xFFFF;
}

/// The character at the beginning of `at`, of which `left` bytes are there. Overlong
/// forms, surrogates and codes above U+10FFFF are none.
constexpr Utf8Character readUtf8(unsigned char const* at, std::size_t left) {
  if (left == 0) return {};
  unsigned const first = at[0];
  if (first < 0x80) return {first, 1};
  std::size_t const length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || left < length) return {};
  char32_t code = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((at[i] & 0xC0U) != 0x80) return {};
    code = (code << 6U) | (at[i] & 0x3FU);
  }
  bool const isOverlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  if (isOverlong || isSurrogate(code) || code > 0x10FFFF) return {};
  return {code, length};
}

}  // namespace fdmorph::values
