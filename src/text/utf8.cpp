#include "text/utf8.h"

namespace fdmorph {

std::size_t utf8Length(std::string_view text) {
  auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char first = byte(0);
  std::size_t length = first < 0x80   ? 1
                       : first < 0xC2 ? 0
                       : first < 0xE0 ? 2
                       : first < 0xF0 ? 3
                       : first < 0xF5 ? 4
                                      : 0;
  if (length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  if (length < 3) return length;
  bool isOverlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
  bool isBeyond = first == 0xF4 && byte(1) > 0x8F;
  bool isSurrogate = first == 0xED && byte(1) > 0x9F;
  bool isNoCharacter = first == 0xEF && byte(1) == 0xBF && byte(2) > 0xBD;
  return isOverlong || isBeyond || isSurrogate || isNoCharacter ? 0 : length;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t length = utf8Length(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

void appendUtf8(std::string& out, unsigned code) {
  auto following = [&](unsigned shift) {
    out += static_cast<char>(0x80U | ((code >> shift) & 0x3FU));
  };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | (code >> 6U));
    following(0);
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0U | (code >> 12U));
    following(6);
    following(0);
  } else {
    out += static_cast<char>(0xF0U | (code >> 18U));
    following(12);
    following(6);
    following(0);
  }
}

}  // namespace fdmorph
