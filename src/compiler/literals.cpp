#include "compiler/literals.h"

#include <algorithm>
#include <charconv>

#include "compiler/letters.h"

namespace fdmorph::compiler {
namespace {

unsigned digitOf(char c) {
  return static_cast<unsigned>(isDigit(c) ? c - '0' : toUpper(c) - 'A' + 10) & 0xFU;
}

void appendUtf8(std::string& out, unsigned code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | (code >> 6U));
    out += static_cast<char>(0x80U | (code & 0x3FU));
  } else {
    out += static_cast<char>(0xE0U | (code >> 12U));
    out += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
    out += static_cast<char>(0x80U | (code & 0x3FU));
  }
}

LiteralContent decodeHexadecimal(std::string_view digits, std::size_t unit) {
  LiteralContent content;
  for (std::size_t at = 0; at + unit <= digits.size(); at += unit) {
    unsigned code = 0;
    for (char c : digits.substr(at, unit)) code = code * 16 + digitOf(c);
    if (unit == 2) {
      content.text += static_cast<char>(code);
    } else {
      appendUtf8(content.text, code);
    }
    ++content.characters;
  }
  return content;
}

LiteralContent decodeNumber(std::string_view digits, int base) {
  std::uint64_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  return {std::to_string(number), 0, true};
}

// `text` again and again, `size` characters, or bytes, long. A character that
// would be cut is left out.
std::optional<std::string> repeated(std::string const& text, std::uint64_t size,
                                    bool countsCharacters = false) {
  if (size > kLongestLiteral || text.empty()) return std::nullopt;
  std::string result;
  std::uint64_t length = 0;
  for (std::size_t i = 0; length < size; i = i + 1 == text.size() ? 0 : i + 1) {
    result += text[i];
    bool isNew = !isFollowingByte(text[i]);
    length += !countsCharacters || isNew ? 1U : 0U;
  }
  // The last character may go on.
  std::size_t at = result.size() % text.size();
  for (; at < text.size() && isFollowingByte(text[at]); ++at) {
    if (countsCharacters) {
      result += text[at];
      continue;
    }
    while (isFollowingByte(result.back())) result.pop_back();
    result.pop_back();
    break;
  }
  return result;
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
  std::string text = decodeLiteral(value.text).text;
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
  if (prefix == "X") return decodeHexadecimal(inside, 2);
  if (prefix == "NX" || prefix == "GX") return decodeHexadecimal(inside, 4);
  if (prefix == "H") return decodeNumber(inside, 16);
  if (prefix == "B") return decodeNumber(inside, 2);
  LiteralContent content;
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
