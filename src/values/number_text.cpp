#include "values/number_text.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "text/letter_case.h"
#include "values/number_bytes.h"

namespace fdmorph::values {
namespace {

// Copies of fixed size are faster than those of the exact one.
char* copyDigits(char* out, char const* from, unsigned count) {
  constexpr unsigned kShort = 16;
  constexpr unsigned kLong = 48;
  std::memcpy(out, from, count <= kShort ? kShort : kLong);
  return out + count;
}

char* fill(char* out, char c, unsigned count) {
  std::memset(out, c, count);
  return out + count;
}

std::string_view takeDigits(std::string_view& text) {
  std::size_t end = 0;
  while (end < text.size() && isDigit(text[end])) ++end;
  std::string_view const digits = text.substr(0, end);
  text.remove_prefix(end);
  return digits;
}

constexpr std::int64_t kMaxExponent = 1'000'000'000'000;  // above any length of a text

std::int64_t exponentOf(std::string_view digits) {
  std::int64_t exponent = 0;
  for (char c : digits) exponent = std::min(exponent * 10 + (c - '0'), kMaxExponent);
  return exponent;
}

// The digits of a number from its first that is not zero on.
class Digits {
 public:
  explicit Digits(DecimalText const& number)
      : m_integer(number.integer),
        m_fraction(number.fraction),
        m_point(number.exponent + static_cast<std::int64_t>(number.integer.size())) {
    m_skipped = std::min(m_integer.find_first_not_of('0'), m_integer.size());
    if (m_skipped == m_integer.size()) {
      m_skipped += std::min(m_fraction.find_first_not_of('0'), m_fraction.size());
    }
    m_point -= static_cast<std::int64_t>(m_skipped);
    m_size = m_integer.size() + m_fraction.size() - m_skipped;
  }

  bool isZero() const { return m_size == 0; }

  /// How many of the digits are before the decimal point; below zero if zeros
  /// follow it.
  std::int64_t point() const { return m_point; }

  std::uint8_t at(std::size_t i) const {
    if (i >= m_size) return 0;
    std::size_t const index = i + m_skipped;
    char const c =
        index < m_integer.size() ? m_integer[index] : m_fraction[index - m_integer.size()];
    return static_cast<std::uint8_t>(c - '0');
  }

  bool hasNonZeroFrom(std::size_t i) const {
    for (; i < m_size; ++i) {
      if (at(i) != 0) return true;
    }
    return false;
  }

 private:
  std::string_view m_integer;
  std::string_view m_fraction;
  std::int64_t m_point;
  std::size_t m_skipped = 0;
  std::size_t m_size = 0;
};

// Adds one to the last digit; false if the first one overflows.
bool increment(StoredDigits& stored) {
  for (unsigned i = stored.count; i-- > 0;) {
    if (stored.digits[i] != 9) {
      ++stored.digits[i];
      return true;
    }
    stored.digits[i] = 0;
  }
  return false;
}

}  // namespace

char* writeNumber(char* out, DigitText const& digits, unsigned first, unsigned count, int scale,
                  bool isNegative) {
  unsigned const end = first + count;
  unsigned start = first;
  while (start < end && digits[start] == '0') ++start;
  if (isNegative && start < end) *out++ = '-';
  if (scale <= 0) {
    if (start == end) return fill(out, '0', 1);
    out = copyDigits(out, digits.data() + start, end - start);
    return fill(out, '0', static_cast<unsigned>(-scale));
  }
  auto const places = static_cast<unsigned>(scale);
  if (places >= count) {
    *out++ = '0';
    *out++ = '.';
    out = fill(out, '0', places - count);
    return copyDigits(out, digits.data() + first, count);
  }
  unsigned const point = end - places;
  start = std::min(start, point - 1);
  out = copyDigits(out, digits.data() + start, point - start);
  *out++ = '.';
  return copyDigits(out, digits.data() + point, places);
}

namespace {

constexpr unsigned kHalfRow = kMaxRow / 2;

// Writes the first `count` digits of a row as characters, the highest nibble first, and
// others up to a half or the whole of the row.
void writeDigits(char* out, std::uint64_t row, unsigned count) {
  constexpr std::uint64_t kZeros = 0x3030303030303030;
  auto* const bytes = reinterpret_cast<unsigned char*>(out);
  storeInteger(spreadDigits(row >> 32U) | kZeros, bytes, 8, true);
  if (count > kHalfRow) storeInteger(spreadDigits(row) | kZeros, bytes + 8, 8, true);
}

}  // namespace

char* writeRow(char* out, std::uint64_t row, int scale, bool isNegative) {
  constexpr unsigned kBits = 64;
  unsigned const places = 4 * static_cast<unsigned>(scale);  // in bits
  // Signs come in no order that a processor could predict.
  *out = '-';
  out += static_cast<unsigned>(isNegative) & static_cast<unsigned>(row != 0);
  std::uint64_t const integer = places == kBits ? 0 : row >> places;
  auto const zeros = static_cast<unsigned>(std::countl_zero(integer | 1)) / 4;
  writeDigits(out, integer << (4 * zeros), kMaxRow - zeros);
  out += kMaxRow - zeros;
  if (places == 0) return out;
  *out = '.';
  writeDigits(out + 1, row << (kBits - places), static_cast<unsigned>(scale));
  return out + 1 + scale;
}

std::optional<TextRow> readRow(std::string_view text, unsigned digits, int scale) {
  TextRow result;
  if (text.size() > std::size_t{2} * kMaxRow) return std::nullopt;
  char const* at = text.data();
  char const* const end = at + text.size();
  if (at != end && *at == '-') {
    result.isNegative = true;
    ++at;
  }
  auto takeDigits = [&] {
    char const* const begin = at;
    for (; at != end && isDigit(*at); ++at) {
      result.row = (result.row << 4U) | static_cast<std::uint64_t>(*at - '0');
    }
    return static_cast<int>(at - begin);
  };
  // So many digits neither leave the row nor miss the places of the item.
  int const integer = takeDigits();
  if (integer == 0 || integer + scale > static_cast<int>(digits)) return std::nullopt;
  int missing = scale;
  if (at != end) {
    if (*at != '.' || end - at - 1 > scale) return std::nullopt;
    ++at;
    missing -= takeDigits();
    if (at != end) return std::nullopt;
  }
  result.row <<= 4 * static_cast<unsigned>(missing);
  return result;
}

std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\n\r";
  std::size_t const begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

std::optional<DecimalText> readDecimal(std::string_view text, NumberSyntax syntax) {
  text = withoutBlanks(text);
  DecimalText number;
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    number.isNegative = text[0] == '-';
    text.remove_prefix(1);
  }
  number.integer = takeDigits(text);
  if (!text.empty() && text[0] == '.') {
    text.remove_prefix(1);
    number.fraction = takeDigits(text);
  }
  if (number.integer.empty() && number.fraction.empty()) return std::nullopt;
  if (text.empty()) return number;
  if (syntax != NumberSyntax::exponent || (text[0] != 'e' && text[0] != 'E')) return std::nullopt;
  text.remove_prefix(1);
  bool const isBelow = !text.empty() && text[0] == '-';
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
  std::string_view const digits = takeDigits(text);
  if (digits.empty() || !text.empty()) return std::nullopt;
  number.exponent = isBelow ? -exponentOf(digits) : exponentOf(digits);
  return number;
}

StoredDigits storeDigits(std::string_view text, ItemFormat const& format, Rounding rounding,
                         NumberSyntax syntax) {
  StoredDigits stored;
  stored.count = format.digits;
  std::optional<DecimalText> const number = readDecimal(text, syntax);
  if (!number) {
    stored.error = ValueError::number;
    return stored;
  }
  Digits const digits(*number);
  if (digits.isZero()) return stored;
  // The stored digits begin so many positions before the first digit of the text.
  std::int64_t const integerDigits = std::int64_t{format.digits} - format.scale;
  std::int64_t const zeros = integerDigits - digits.point();
  if (zeros < 0 || (number->isNegative && !format.isSigned)) {
    stored.error = ValueError::overflow;
    return stored;
  }
  std::size_t next = 0;  // digit of the text
  for (unsigned i = 0; i < stored.count; ++i) {
    if (static_cast<std::int64_t>(i) < zeros) continue;
    stored.digits[i] = digits.at(next++);
    stored.isZero &= stored.digits[i] == 0;
  }
  if (digits.hasNonZeroFrom(next)) {
    bool const isHalf = zeros <= static_cast<std::int64_t>(stored.count) && digits.at(next) >= 5;
    stored.isPrecisionLost = rounding == Rounding::refuse;
    if (rounding == Rounding::halfUp && isHalf) {
      if (!increment(stored)) stored.error = ValueError::overflow;
      stored.isZero = false;
    }
  }
  stored.isNegative = number->isNegative && !stored.isZero;
  return stored;
}

}  // namespace fdmorph::values
