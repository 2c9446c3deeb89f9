#include "source/literals.h"

#include <algorithm>
#include <charconv>

#include "text/letter_case.h"
#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

unsigned digitOf(char c) {
  return static_cast<unsigned>(isDigit(c) ? c - '0' : toUpper(c) - 'A' + 10) & 0xFU;
}

unsigned codeOf(std::string_view digits) {
  unsigned code = 0;
  for (char c : digits) code = code * 16 + digitOf(c);
  return code;
}

// Bytes beyond ASCII are not text: the program decides what they mean.
LiteralContent decodeBytes(std::string_view digits) {
  LiteralContent content;
  for (std::size_t at = 0; at + 2 <= digits.size(); at += 2, ++content.characters) {
    content.text += static_cast<char>(codeOf(digits.substr(at, 2)));
    content.isBinary |= static_cast<unsigned char>(content.text.back()) >= 0x80;
  }
  return content;
}

// The digits are units of UTF-16, in which two surrogates are one character.
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
  content.isBinary = prefix == "Z";  // ends in a NUL
  char mark = literal[quote];
  content.text.reserve(inside.size());
  for (std::size_t at = 0; at < inside.size();) {
    std::size_t end = std::min(inside.find(mark, at), inside.size() - 1) + 1;
    content.text += inside.substr(at, end - at);
    at = end + (inside[end - 1] == mark ? 1 : 0);  // a quote is written twice
  }
  content.characters = static_cast<std::size_t>(std::count_if(
      content.text.begin(), content.text.end(), [](char c) { return !isUtf8Continuation(c); }));
  return content;
}

bool isNationalLiteral(std::string_view literal) {
  char first = literal.empty() ? '\0' : toUpper(literal.front());
  return first == 'N' || first == 'G';
}

std::string hexadecimalLiteral(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string literal = "X\"";
  for (char c : bytes) {
    auto byte = static_cast<unsigned char>(c);
    literal += kDigits[byte >> 4U];
    literal += kDigits[byte & 0xFU];
  }
  return literal += '"';
}

std::string quotedLiteral(std::string_view content) {
  std::string literal = "\"";
  for (char c : content) {
    if (c == '"') literal += c;
    literal += c;
  }
  return literal += '"';
}

}  // namespace fdmorph::compiler
