#include "compiler/literals.h"

#include <algorithm>
#include <charconv>

#include "compiler/letters.h"

namespace fdmorph::compiler {
namespace {

// Bytes of a value. No compiler takes a longer literal, and the value of an
// item of gigabytes doesn't have to be written out.
constexpr std::uint64_t kLongestValue = 8191;

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

std::optional<std::string> repeated(std::string const& text, std::uint64_t size) {
  if (size > kLongestValue) return std::nullopt;
  std::string result;
  if (text.empty()) return result;
  while (result.size() < size) result += text;
  result.resize(size);
  return result;
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

std::optional<std::string> valueText(Literal const& value, bool isNumber, std::uint64_t size) {
  switch (value.kind) {
    case Literal::Kind::number:
      return std::string(value.text);
    case Literal::Kind::text: {
      std::string text = decodeLiteral(value.text).text;
      if (value.isAll && !isNumber) return repeated(text, size);
      return text;
    }
    case Literal::Kind::zero:
      return isNumber ? std::optional<std::string>("0") : repeated("0", size);
    case Literal::Kind::space:
      return isNumber ? std::optional<std::string>() : " ";
    case Literal::Kind::quote:
      return isNumber ? std::optional<std::string>() : repeated("\"", size);
    default:
      return std::nullopt;
  }
}

}  // namespace fdmorph::compiler
