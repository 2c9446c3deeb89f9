#include "values/character_table.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "text/utf8.h"
#include "values/utf8_reader.h"

namespace fdmorph::values {
namespace {

CharacterText textOf(std::string_view text) {
  CharacterText result;
  std::copy(text.begin(), text.end(), result.text.begin());
  result.length = static_cast<std::uint8_t>(text.size());
  return result;
}

CharacterText refused() {
  CharacterText result;
  result.length = CharacterText::kRefused;
  return result;
}

CharacterText forbiddenText(Controls controls) {
  switch (controls) {
    case Controls::replace:
      return textOf("\xEF\xBF\xBD");
    case Controls::drop:
      return {};
    default:
      return refused();
  }
}

std::string_view xmlEscape(char32_t character, bool isAttribute) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    case '"':
      return isAttribute ? "&quot;" : std::string_view();
    case '\t':
      return isAttribute ? "&#9;" : std::string_view();
    default:
      return {};
  }
}

std::string jsonEscape(char32_t character) {
  constexpr std::string_view kCharacters = "\"\\\b\f\n\r\t";
  constexpr std::string_view kLetters = "\"\\bfnrt";
  constexpr std::string_view kDigits = "0123456789abcdef";
  if (character >= 0x80) return {};
  std::size_t const at = kCharacters.find(static_cast<char>(character));
  if (at != std::string_view::npos) return {'\\', kLetters[at]};
  if (character >= 0x20) return {};
  return {'\\', 'u', '0', '0', kDigits[character >> 4U], kDigits[character & 0xFU]};
}

CharacterText characterText(char32_t character, Target target, Controls controls) {
  std::string text;
  if (isXml(target)) {
    if (!isXmlCharacter(character)) return forbiddenText(controls);
    text = xmlEscape(character, target == Target::xmlAttribute);
  } else if (target == Target::json) {
    text = jsonEscape(character);
  }
  if (text.empty()) appendUtf8(text, character);
  return textOf(text);
}

}  // namespace

CharacterTable makeCharacterTable(Conventions const& conventions, Target target) {
  CharacterTable table;
  for (unsigned code = 0; code < table.ascii.size(); ++code) {
    table.ascii[code] = characterText(code, target, conventions.controls);
  }
  for (unsigned byte = 0; byte < table.bytes.size(); ++byte) {
    std::int32_t const code = conventions.codePage->characterOf(static_cast<std::uint8_t>(byte));
    CharacterText& text = table.bytes[byte];
    text = code < 0 ? refused()
                    : characterText(static_cast<char32_t>(code), target, conventions.controls);
    auto const first = static_cast<unsigned char>(text.text[0]);
    if (text.length == 1 && first < 0x80) table.plainBytes[byte] = first;
  }
  table.forbidden = forbiddenText(conventions.controls);
  return table;
}

TextBytes makeTextBytes(Conventions const& conventions) {
  TextBytes table;
  for (unsigned code = 0; code < table.ascii.size(); ++code) {
    int const byte = code < 0x80 ? conventions.codePage->byteOf(code) : -1;
    table.ascii[code] = byte < 0 ? TextBytes::kOther : static_cast<std::uint16_t>(byte);
  }
  return table;
}

}  // namespace fdmorph::values
