#include "values/value_messages.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/utf8.h"
#include "values/utf8_reader.h"

namespace fdmorph::values {
namespace {

constexpr std::size_t kMaxShown = 40;  // characters

Utf8Character characterAt(std::string_view text, std::size_t at) {
  return readUtf8(reinterpret_cast<unsigned char const*>(text.data()) + at, text.size() - at);
}

// A text in quotes, on one line.
std::string shown(std::string_view text) {
  std::string result = "'";
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    if (count == kMaxShown) return result + "...'";
    Utf8Character const character = characterAt(text, at);
    bool const isControl = character.code < 0x20 || character.code == 0x7F;
    appendUtf8(result, character.length == 0 ? 0xFFFD : isControl ? ' ' : character.code);
    at += std::max<std::size_t>(character.length, 1);
  }
  return result + "'";
}

std::string describeCharacter(std::string_view text, std::size_t at) {
  Utf8Character const character = at < text.size() ? characterAt(text, at) : Utf8Character{};
  if (character.length == 0) return "the text is not valid UTF-8";
  std::array<char, 8> digits{};
  char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), std::uint32_t{character.code}, 16)
          .ptr;
  std::string code(digits.data(), end);
  std::ranges::transform(code, code.begin(),
                         [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
  if (code.size() < 4) code.insert(0, 4 - code.size(), '0');
  return "character U+" + code + " is not in the encoding";
}

}  // namespace

std::string_view codeOf(ValueError error) {
  constexpr std::array<std::string_view, 8> kCodes{"none",   "digit",    "range",     "character",
                                                   "number", "overflow", "precision", "length"};
  return kCodes[static_cast<std::size_t>(error)];
}

std::string_view describeBytes(ValueError error) {
  switch (error) {
    case ValueError::digit:
      return "invalid digit";
    case ValueError::range:
      return "more digits than the picture";
    case ValueError::character:
      return "invalid character";
    default:
      return "invalid value";
  }
}

std::string describeText(EncodeResult const& result, ItemFormat const& format,
                         std::string_view text) {
  switch (result.error) {
    case ValueError::number:
      return text.empty() ? "an empty text is not a number" : shown(text) + " is not a number";
    case ValueError::overflow:
      return shown(text) + " is out of the item's range";
    case ValueError::precision:
      return shown(text) + " has more decimal places than the item";
    case ValueError::length: {
      bool const isNational = format.kind == Kind::national;
      std::string const size = std::to_string(isNational ? format.size / 2 : format.size);
      return shown(text) + " is longer than " + size +
             (isNational         ? " characters"
              : format.size == 1 ? " byte"
                                 : " bytes");
    }
    case ValueError::character:
      return describeCharacter(text, result.position);
    default:
      return {};
  }
}

}  // namespace fdmorph::values
