#include "values/floating.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "values/hexadecimal_float.h"
#include "values/number_bytes.h"
#include "values/number_text.h"

namespace fdmorph::values {
namespace {

constexpr unsigned kShortSize = 4;
constexpr std::size_t kMaxText = 64;

std::uint64_t bitsOf(ItemFormat const& format, unsigned char const* bytes) {
  return loadInteger(bytes, format.size, format.floats != FloatForm::ieeeLittle);
}

void storeBits(ItemFormat const& format, std::uint64_t bits, unsigned char* bytes) {
  storeInteger(bits, bytes, format.size, format.floats != FloatForm::ieeeLittle);
}

template <typename Number>
DecodeResult writeShortest(Number number, char* out) {
  std::string_view special;
  if (std::isnan(number)) special = "NaN";
  if (std::isinf(number)) special = number < 0 ? "-INF" : "INF";
  if (!special.empty()) {
    std::memcpy(out, special.data(), special.size());
    return {out + special.size()};
  }
  return {std::to_chars(out, out + kMaxText, number).ptr, ValueError::none, true};
}

// Whether a number that is out of the range of a type is too large for it, and not
// too small.
bool isLarge(DecimalText const& number) {
  std::size_t const skipped = number.integer.find_first_not_of('0');
  std::int64_t point = 0;  // the position of the first digit
  if (skipped != std::string_view::npos) {
    point = static_cast<std::int64_t>(number.integer.size() - skipped);
  } else {
    point = -static_cast<std::int64_t>(number.fraction.find_first_not_of('0'));
  }
  return point + number.exponent > 0;
}

bool isZero(DecimalText const& number) {
  return number.integer.find_first_not_of('0') == std::string_view::npos &&
         number.fraction.find_first_not_of('0') == std::string_view::npos;
}

// The nearest number; infinite if it is too large.
template <typename Number>
Number nearest(std::string_view text, DecimalText const& decimal) {
  Number const zero = decimal.isNegative ? -Number{0} : Number{0};
  if (isZero(decimal)) return zero;
  if (text.front() == '+') text.remove_prefix(1);
  Number number{};
  auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec == std::errc{}) return number;
  if (!isLarge(decimal)) return zero;
  Number const infinity = std::numeric_limits<Number>::infinity();
  return decimal.isNegative ? -infinity : infinity;
}

template <typename Number>
std::optional<Number> specialNumber(std::string_view text) {
  Number const infinity = std::numeric_limits<Number>::infinity();
  if (text == "NaN") return std::numeric_limits<Number>::quiet_NaN();
  if (text == "INF") return infinity;
  if (text == "-INF") return -infinity;
  return std::nullopt;
}

template <typename Number, typename Bits>
EncodeResult encodeIeee(ItemFormat const& format, std::string_view text, unsigned char* bytes) {
  std::optional<Number> number = specialNumber<Number>(text);
  if (!number) {
    std::optional<DecimalText> const decimal = readDecimal(text, NumberSyntax::exponent);
    if (!decimal) return {ValueError::number};
    number = nearest<Number>(text, *decimal);
    if (std::isinf(*number)) return {ValueError::overflow};
  }
  storeBits(format, std::bit_cast<Bits>(*number), bytes);
  return {};
}

EncodeResult encodeHexadecimal(ItemFormat const& format, std::string_view text,
                               unsigned char* bytes) {
  std::optional<DecimalText> const decimal = readDecimal(text, NumberSyntax::exponent);
  if (!decimal) return {ValueError::number};
  auto const number = nearest<double>(text, *decimal);
  if (std::isinf(number)) return {ValueError::overflow};
  std::optional<std::uint64_t> const bits = makeHexadecimal(number, format.size);
  if (!bits) return {ValueError::overflow};
  storeBits(format, *bits, bytes);
  return {};
}

}  // namespace

DecodeResult decodeFloating(ItemFormat const& format, unsigned char const* bytes, char* out) {
  std::uint64_t const bits = bitsOf(format, bytes);
  bool const isShort = format.size == kShortSize;
  if (format.floats == FloatForm::ibm) {
    return writeShortest(isShort ? shortestHexadecimal(bits) : readHexadecimal(bits, format.size),
                         out);
  }
  if (isShort) return writeShortest(std::bit_cast<float>(static_cast<std::uint32_t>(bits)), out);
  return writeShortest(std::bit_cast<double>(bits), out);
}

EncodeResult encodeFloating(ItemFormat const& format, std::string_view text, unsigned char* bytes) {
  text = withoutBlanks(text);
  if (format.floats == FloatForm::ibm) return encodeHexadecimal(format, text, bytes);
  return format.size == kShortSize ? encodeIeee<float, std::uint32_t>(format, text, bytes)
                                   : encodeIeee<double, std::uint64_t>(format, text, bytes);
}

double readFloating(ItemFormat const& format, unsigned char const* bytes) {
  std::uint64_t const bits = bitsOf(format, bytes);
  if (format.floats == FloatForm::ibm) return readHexadecimal(bits, format.size);
  if (format.size != kShortSize) return std::bit_cast<double>(bits);
  return double{std::bit_cast<float>(static_cast<std::uint32_t>(bits))};
}

}  // namespace fdmorph::values
