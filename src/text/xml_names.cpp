#include "text/xml_names.h"

#include <algorithm>
#include <array>

#include "text/utf8.h"

namespace fdmorph {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// NameStartChar of XML 1.0, fifth edition, without the colon.
constexpr std::array<Range, 15> kStartRanges{{
    {U'A', U'Z'},
    {U'_', U'_'},
    {U'a', U'z'},
    {0xC0, 0xD6},
    {0xD8, 0xF6},
    {0xF8, 0x2FF},
    {0x370, 0x37D},
    {0x37F, 0x1FFF},
    {0x200C, 0x200D},
    {0x2070, 0x218F},
    {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF},
    {0xF900, 0xFDCF},
    {0xFDF0, 0xFFFD},
    {0x10000, 0xEFFFF},
}};

// What NameChar has besides.
constexpr std::array<Range, 5> kOtherRanges{{
    {U'-', U'.'},
    {U'0', U'9'},
    {0xB7, 0xB7},
    {0x300, 0x36F},
    {0x203F, 0x2040},
}};

template <std::size_t Size>
bool isIn(std::array<Range, Size> const& ranges, char32_t code) {
  return std::ranges::any_of(
      ranges, [code](Range const& each) { return each.first <= code && code <= each.last; });
}

/// The first character of a text.
struct Character {
  char32_t code = 0;
  std::size_t length = 1;  // in bytes
  bool isValid = false;
};

Character readCharacter(std::string_view text) {
  std::size_t length = utf8Length(text);
  if (length == 0) return {};
  auto byteAt = [&](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(text[i]));
  };
  char32_t code = length == 1 ? byteAt(0) : byteAt(0) & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) code = (code << 6U) | (byteAt(i) & 0x3FU);
  return {code, length, true};
}

bool isStart(Character const& character) {
  return character.isValid && isIn(kStartRanges, character.code);
}

bool isNameCharacter(Character const& character) {
  return isStart(character) || (character.isValid && isIn(kOtherRanges, character.code));
}

}  // namespace

bool isNcName(std::string_view text) {
  if (text.empty() || !isStart(readCharacter(text))) return false;
  while (!text.empty()) {
    Character character = readCharacter(text);
    if (!isNameCharacter(character)) return false;
    text.remove_prefix(character.length);
  }
  return true;
}

std::string toNcName(std::string_view text) {
  std::string name;
  while (!text.empty()) {
    Character character = readCharacter(text);
    bool isKept = isNameCharacter(character);
    if (name.empty() && isKept && !isStart(character)) name += '_';
    name += isKept ? text.substr(0, character.length) : "_";
    text.remove_prefix(character.length);
  }
  return name.empty() ? "_" : name;
}

}  // namespace fdmorph
