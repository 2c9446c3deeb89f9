#include "compiler/literals.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "compiler/letters.h"
#include "compiler/xml_text.h"

namespace fdmorph::compiler {
namespace {

unsigned digitOf(char c) {
  return static_cast<unsigned>(isDigit(c) ? c - '0' : toUpper(c) - 'A' + 10) & 0xFU;
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

unsigned codeOf(std::string_view digits) {
  unsigned code = 0;
  for (char c : digits) code = code * 16 + digitOf(c);
  return code;
}

// Bytes beyond ASCII are no text: what they mean lies in the program.
LiteralContent decodeBytes(std::string_view digits) {
  LiteralContent content;
  for (std::size_t at = 0; at + 2 <= digits.size(); at += 2, ++content.characters) {
    content.text += static_cast<char>(codeOf(digits.substr(at, 2)));
    content.isBinary |= static_cast<unsigned char>(content.text.back()) >= 0x80;
  }
  return content;
}

// Units of UTF-16, in which a pair of surrogates is one character.
LiteralContent decodeNational(std::string_view digits) {
  constexpr std::size_t kUnit = 4;
  auto isIn = [](unsigned code, unsigned first) { return code >= first && code < first + 0x400; };
  LiteralContent content;
  for (std::size_t at = 0; at + kUnit <= digits.size(); at += kUnit, ++content.characters) {
    unsigned code = codeOf(digits.substr(at, kUnit));
    unsigned next = isIn(code, 0xD800) ? codeOf(digits.substr(at + kUnit).substr(0, kUnit)) : 0;
    if (isIn(next, 0xDC00)) {
      code = 0x10000 + ((code - 0xD800) << 10U) + (next - 0xDC00);
      at += kUnit;
      ++content.characters;
    }
    content.isBinary |= code >= 0xD800 && code < 0xE000;
    appendUtf8(content.text, code);
  }
  return content;
}

LiteralContent decodeNumber(std::string_view digits, int base) {
  std::uint64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  return {std::to_string(number), 0, true, false};
}

// The characters of UTF-8, or the bytes of anything else.
std::vector<std::string_view> charactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  bool isCharacters = isUtf8(text);
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    while (isCharacters && end < text.size() && isFollowingByte(text[end])) ++end;
    characters.push_back(text.substr(at, end - at));
    at = end;
  }
  return characters;
}

// `text` again and again, as many characters, or bytes, as there is room for.
std::optional<std::string> repeated(std::string const& text, std::uint64_t size,
                                    bool countsCharacters = false) {
  if (size > kLongestLiteral || text.empty()) return std::nullopt;
  std::vector<std::string_view> characters = charactersOf(text);
  std::string result;
  std::uint64_t length = 0;
  for (std::size_t i = 0;; i = (i + 1) % characters.size()) {
    length += countsCharacters ? 1 : characters[i].size();
    if (length > size) return result;
    result += characters[i];
  }
}

// Digits with a sign and a decimal point at will, and blanks around them.
bool isNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  text = text.substr(0, text.find_last_not_of(' ') + 1);  // npos + 1 is 0
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  std::size_t point = std::min(text.find('.'), text.size());
  std::string_view fraction = text.substr(std::min(point + 1, text.size()));
  bool hasFraction = point < text.size();
  return isAllDigits(text.substr(0, point)) && (!hasFraction || isAllDigits(fraction));
}

std::optional<std::string> textValue(Literal const& value, ValueTarget const& target) {
  LiteralContent content = decodeLiteral(value.text);
  if (content.isBinary || value.isBinary) return std::nullopt;
  std::string text = std::move(content.text);
  bool isBits = value.text.size() > 2 && toUpper(value.text[0]) == 'B' &&
                (value.text[1] == '"' || value.text[1] == '\'');
  if (isBits && target.isBoolean) text = value.text.substr(2, value.text.size() - 3);
  if (value.isAll) {
    if (target.isNumber && !target.isWhole) return std::nullopt;
    std::optional<std::string> all = repeated(text, target.size, target.isNational);
    if (!all) return all;
    text = std::move(*all);
  }
  if (target.isNumber && !isNumber(text)) return std::nullopt;
  return text;
}

}  // namespace

LiteralContent decodeLiteral(std::string_view literal) {
  std::size_t quote = literal.find_first_of("\"'");
  if (quote == std::string_view::npos || literal.size() < quote + 2) return {};
  std::string prefix = upperCase(literal.substr(0, quote));
  std::string_view inside = literal.substr(quote + 1, literal.size() - quote - 2);
  if (prefix == "X") return decodeBytes(inside);
  if (prefix == "NX" || prefix == "GX") return decodeNational(inside);
  if (prefix == "H") return decodeNumber(inside, 16);
  if (prefix == "B") return decodeNumber(inside, 2);
  LiteralContent content;
  content.isBinary = prefix == "Z";  // it ends in a NUL
  char mark = literal[quote];
  for (std::size_t i = 0; i < inside.size(); ++i) {
    content.text += inside[i];
    if (inside[i] == mark) ++i;
    if (!isFollowingByte(content.text.back())) ++content.characters;
  }
  return content;
}

bool isNationalLiteral(std::string_view literal) {
  char first = literal.empty() ? '\0' : toUpper(literal.front());
  return first == 'N' || first == 'G';
}

std::string quotedLiteral(std::string_view content) {
  std::string literal = "\"";
  for (char c : content) {
    if (c == '"') literal += c;
    literal += c;
  }
  return literal += '"';
}

std::optional<std::string> valueText(Literal const& value, ValueTarget const& target) {
  switch (value.kind) {
    case Literal::Kind::number:
      return std::string(value.text);
    case Literal::Kind::text:
      return textValue(value, target);
    case Literal::Kind::zero:
      return target.isNumber ? std::optional<std::string>("0") : repeated("0", target.size);
    case Literal::Kind::space:
      return target.isNumber ? std::optional<std::string>() : " ";
    case Literal::Kind::quote:
      return target.isNumber ? std::optional<std::string>() : repeated("\"", target.size);
    default:
      return std::nullopt;
  }
}

}  // namespace fdmorph::compiler
