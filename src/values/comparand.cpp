#include "values/comparand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "values/floating.h"
#include "values/number_text.h"

namespace fdmorph::values {
namespace {

using compiler::Literal;

std::string_view withoutZeros(std::string_view integer) {
  return integer.substr(std::min(integer.find_first_not_of('0'), integer.size()));
}

bool isZero(DecimalText const& number) {
  return number.integer.find_first_not_of('0') == std::string_view::npos &&
         number.fraction.find_first_not_of('0') == std::string_view::npos;
}

std::strong_ordering compareMagnitudes(DecimalText const& left, DecimalText const& right) {
  std::string_view const leftInteger = withoutZeros(left.integer);
  std::string_view const rightInteger = withoutZeros(right.integer);
  auto const bySize = leftInteger.size() <=> rightInteger.size();
  if (!std::is_eq(bySize)) return bySize;
  auto const byInteger = leftInteger <=> rightInteger;
  if (!std::is_eq(byInteger)) return byInteger;
  std::size_t const places = std::max(left.fraction.size(), right.fraction.size());
  for (std::size_t i = 0; i < places; ++i) {
    char const a = i < left.fraction.size() ? left.fraction[i] : '0';
    char const b = i < right.fraction.size() ? right.fraction[i] : '0';
    if (a != b) return a <=> b;
  }
  return std::strong_ordering::equal;
}

/// A text as units that compare: bytes, or those of UTF-16.
class Units {
 public:
  Units(unsigned char const* bytes, std::size_t size, unsigned unitSize, bool isBigEndian)
      : m_bytes(bytes),
        m_unitSize(unitSize),
        m_isBigEndian(isBigEndian),
        m_count(size / unitSize) {}

  std::size_t count() const { return m_count; }

  unsigned at(std::size_t i) const {
    unsigned char const* const unit = m_bytes + i * m_unitSize;
    if (m_unitSize == 1) return unit[0];
    return m_isBigEndian ? unit[0] * 256U + unit[1] : unit[1] * 256U + unit[0];
  }

  /// Without the units of zero at the end.
  Units trimmed() const {
    Units result = *this;
    while (result.m_count > 0 && result.at(result.m_count - 1) == 0) --result.m_count;
    return result;
  }

 private:
  unsigned char const* m_bytes;
  unsigned m_unitSize;
  bool m_isBigEndian;
  std::size_t m_count;
};

std::strong_ordering compareUnits(Units const& left, Units const& right, unsigned blank) {
  std::size_t const count = std::max(left.count(), right.count());
  for (std::size_t i = 0; i < count; ++i) {
    unsigned const a = i < left.count() ? left.at(i) : blank;
    unsigned const b = i < right.count() ? right.at(i) : blank;
    if (a != b) return a <=> b;
  }
  return std::strong_ordering::equal;
}

unsigned char const* bytesOf(std::string const& text) {
  return reinterpret_cast<unsigned char const*>(text.data());
}

bool isFilling(Literal const& literal) {
  return literal.isAll ||
         (literal.kind != Literal::Kind::number && literal.kind != Literal::Kind::text);
}

}  // namespace

std::strong_ordering compareDecimals(std::string_view left, std::string_view right) {
  DecimalText const a = readDecimal(left, NumberSyntax::decimal).value_or(DecimalText{});
  DecimalText const b = readDecimal(right, NumberSyntax::decimal).value_or(DecimalText{});
  bool const isLeftNegative = a.isNegative && !isZero(a);
  bool const isRightNegative = b.isNegative && !isZero(b);
  if (isLeftNegative != isRightNegative) {
    return isLeftNegative ? std::strong_ordering::less : std::strong_ordering::greater;
  }
  return isLeftNegative ? compareMagnitudes(b, a) : compareMagnitudes(a, b);
}

Comparand::Comparand(Values const& values, LiteralBytes const& literals, ItemFormat format,
                     Literal const& literal)
    : m_values(&values), m_format(std::move(format)) {
  std::optional<std::string> const number = LiteralBytes::numberOf(literal);
  if (m_format.kind == Kind::floating && number) {
    // The literal is what the item would hold of it.
    std::array<unsigned char, 8> bytes{};
    if (encodeFloating(m_format, *number, bytes.data()).error != ValueError::none) return;
    m_mode = Mode::floating;
    m_floating = readFloating(m_format, bytes.data());
  } else if (m_format.isNumber() && number) {
    m_mode = Mode::number;
    m_number = *number;
  } else {
    setText(literals, literal);
  }
}

void Comparand::setText(LiteralBytes const& literals, Literal const& literal) {
  constexpr std::size_t kUnit = 2;
  bool const isNational = m_format.kind == Kind::national;
  m_isFilling = isFilling(literal);
  Literal once = literal;
  once.isAll = false;
  std::optional<std::string> text = literals.textOf(m_format, isNational ? kUnit : 1, once);
  if (!text || (text->empty() && m_isFilling)) return;
  m_text = std::move(*text);
  bool const isLow = literal.kind == Literal::Kind::lowValue || literal.kind == Literal::Kind::null;
  m_mode = m_format.isNumber() || isLow ? Mode::bytes : Mode::text;
  if (isNational) m_mode = Mode::national;
}

std::optional<std::strong_ordering> Comparand::compareNumber(unsigned char const* bytes) const {
  std::array<char, kMaxNumberText> text;
  DecodeResult const result = m_values->decode<Target::plain>(m_format, bytes, text.data());
  if (result.error != ValueError::none || result.isOmitted) return std::nullopt;
  return compareDecimals({text.data(), static_cast<std::size_t>(result.end - text.data())},
                         m_number);
}

std::strong_ordering Comparand::compareText(unsigned char const* bytes, std::size_t size) const {
  bool const isNational = m_mode == Mode::national;
  unsigned const unitSize = isNational ? 2 : 1;
  std::string filled;
  if (m_isFilling) {
    while (filled.size() < size) filled += m_text;
    filled.resize(size);
  }
  std::string const& text = m_isFilling ? filled : m_text;
  unsigned const blank = isNational ? ' ' : m_values->signBytes().blank;
  Units const left(bytes, size, unitSize, m_format.isBigEndian);
  Units const right(bytesOf(text), text.size(), unitSize, m_format.isBigEndian);
  if (m_mode == Mode::bytes) return compareUnits(left, right, blank);
  return compareUnits(left.trimmed(), right.trimmed(), blank);
}

std::optional<std::strong_ordering> Comparand::compare(unsigned char const* bytes,
                                                       std::size_t size) const {
  switch (m_mode) {
    case Mode::none:
      return std::nullopt;
    case Mode::number:
      return compareNumber(bytes);
    case Mode::floating: {
      double const number = readFloating(m_format, bytes);
      if (std::isnan(number)) return std::nullopt;
      if (number == m_floating) return std::strong_ordering::equal;
      return number < m_floating ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    default:
      return compareText(bytes, size);
  }
}

std::optional<std::strong_ordering> compare(Values const& values, ItemFormat const& format,
                                            unsigned char const* bytes, Literal const& literal) {
  return Comparand(values, LiteralBytes(values), format, literal).compare(bytes, format.size);
}

}  // namespace fdmorph::values
