#include "values/literal_bytes.h"

#include <algorithm>

#include "source/literals.h"
#include "text/letter_case.h"
#include "values/number_text.h"

namespace fdmorph::values {
namespace {

using compiler::Literal;

Conventions lenient(Conventions conventions) {
  conventions.truncates = true;
  conventions.rounding = Rounding::truncate;
  conventions.blankNumbers = BlankNumbers::refuse;
  conventions.unmappable.reset();
  return conventions;
}

// X"..": bytes, whatever the encoding is.
bool isHexadecimal(std::string_view literal) {
  return !literal.empty() && toUpper(literal.front()) == 'X';
}

bool isTerminated(std::string_view literal) {
  return !literal.empty() && toUpper(literal.front()) == 'Z';
}

bool isFigurative(Literal::Kind kind) {
  return kind != Literal::Kind::number && kind != Literal::Kind::text;
}

// Repeats a text up to a size in bytes.
std::string repeated(std::string const& text, std::size_t size) {
  std::string result;
  if (text.empty()) return result;
  result.reserve(size + text.size());
  while (result.size() < size) result += text;
  result.resize(size);
  return result;
}

}  // namespace

LiteralBytes::LiteralBytes(Values const& values) : m_values(lenient(values.conventions())) {}

std::optional<std::string> LiteralBytes::encoded(ItemFormat const& format,
                                                 std::string_view text) const {
  bool const isNational = format.kind == Kind::national;
  std::string bytes(text.size() * 2, '\0');
  ItemFormat room = isNational ? format : makeTextFormat(1);
  room.isJustified = false;
  // The length is that of the characters without the padding: each is stored alone.
  std::size_t size = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) ++end;
    std::string_view const character = text.substr(at, end - at);
    bool const isPair = character.size() == 4;
    bool const isUtf8 = m_values.conventions().codePage->isUtf8();
    std::size_t const unitSize = isPair ? 4 : 2;
    room.size = static_cast<std::uint32_t>(isNational ? unitSize : isUtf8 ? character.size() : 1);
    bytes.resize(size + room.size);
    auto* const out = reinterpret_cast<unsigned char*>(bytes.data()) + size;
    if (m_values.encode(room, character, out).error != ValueError::none) return std::nullopt;
    size += room.size;
    at = end;
  }
  bytes.resize(size);
  return bytes;
}

// The bytes of a text literal, or of the digits of a number.
std::optional<std::string> LiteralBytes::contentOf(ItemFormat const& format,
                                                   Literal const& literal) const {
  if (literal.kind == Literal::Kind::number) return encoded(format, literal.text);
  compiler::LiteralContent const content = compiler::decodeLiteral(literal.text);
  if (isHexadecimal(literal.text)) return content.text;
  std::optional<std::string> bytes = encoded(format, content.text);
  if (bytes && isTerminated(literal.text)) *bytes += '\0';
  return bytes;
}

std::optional<std::string> LiteralBytes::textOf(ItemFormat const& format, std::size_t size,
                                                Literal const& literal) const {
  switch (literal.kind) {
    case Literal::Kind::number:
    case Literal::Kind::text: {
      std::optional<std::string> content = contentOf(format, literal);
      if (content && literal.isAll) return repeated(*content, size);
      return content;
    }
    case Literal::Kind::lowValue:
    case Literal::Kind::null:
      return std::string(size, '\0');
    case Literal::Kind::highValue:
      return std::string(size, '\xFF');
    case Literal::Kind::zero:
    case Literal::Kind::space:
    case Literal::Kind::quote: {
      bool const isZero = literal.kind == Literal::Kind::zero;
      bool const isSpace = literal.kind == Literal::Kind::space;
      std::optional<std::string> one = encoded(format, isZero ? "0" : isSpace ? " " : "\"");
      if (one) *one = repeated(*one, size);
      return one;
    }
    default:
      return std::nullopt;
  }
}

std::optional<std::string> LiteralBytes::numberOf(Literal const& literal) {
  std::string text;
  if (literal.kind == Literal::Kind::zero) return "0";
  if (literal.kind == Literal::Kind::number) {
    text = literal.text;
    std::replace(text.begin(), text.end(), ',', '.');
  } else if (literal.kind == Literal::Kind::text && !literal.isAll) {
    text = compiler::decodeLiteral(literal.text).text;
  } else {
    return std::nullopt;
  }
  if (!readDecimal(text, NumberSyntax::exponent)) return std::nullopt;
  return text;
}

bool LiteralBytes::write(ItemFormat const& format, Literal const& literal,
                         unsigned char* bytes) const {
  if (format.kind == Kind::empty) return true;
  if (format.isNumber()) {
    if (std::optional<std::string> const number = numberOf(literal)) {
      ItemFormat plain = format;
      plain.isBlankWhenZero = false;
      return m_values.encode(plain, *number, bytes, NumberSyntax::exponent).error ==
             ValueError::none;
    }
    if (!isFigurative(literal.kind) && !literal.isAll && format.kind != Kind::editedNumber) {
      return false;
    }
  }
  std::optional<std::string> const text = textOf(format, format.size, literal);
  if (!text) return false;
  std::size_t const size = std::min<std::size_t>(text->size(), format.size);
  std::size_t const left = format.size - size;
  Literal blanks;
  blanks.kind = Literal::Kind::space;
  std::optional<std::string> const padding = textOf(format, left, blanks);
  if (!padding) return false;
  std::copy_n(text->begin(), size, bytes);
  std::copy_n(padding->begin(), left, bytes + size);
  return true;
}

}  // namespace fdmorph::values
