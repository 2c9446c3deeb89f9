#include "values/hexadecimal_float.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace fdmorph::values {
namespace {

constexpr unsigned kShortSize = 4;
constexpr int kBias = 64;
constexpr int kMaxPower = 63;
constexpr int kBitsOfDigit = 4;

unsigned fractionBits(unsigned size) {
  return 8 * size - 8;
}

// A multiple of 2^exponent, which halves round to even. The value is below 2^56, so
// that it is exact where it has a fraction.
std::uint64_t roundedMultiple(double number, int exponent) {
  return static_cast<std::uint64_t>(std::nearbyint(std::ldexp(number, -exponent)));
}

// The number as text with `digits` significant digits, read again.
double withDigits(double number, int digits) {
  std::array<char, 32> text{};
  char* const end = std::to_chars(text.data(), text.data() + text.size(), number,
                                  std::chars_format::scientific, digits - 1)
                        .ptr;
  double result = 0;
  std::from_chars(text.data(), end, result);
  return result;
}

}  // namespace

double readHexadecimal(std::uint64_t bits, unsigned size) {
  unsigned const fraction = fractionBits(size);
  std::uint64_t const digits = bits & ((std::uint64_t{1} << fraction) - 1);
  int const power = static_cast<int>((bits >> fraction) & 0x7FU) - kBias;
  bool const isNegative = (bits >> (fraction + 7)) != 0 && digits != 0;
  double number =
      std::ldexp(static_cast<double>(digits), kBitsOfDigit * power - static_cast<int>(fraction));
  // The largest numbers would become the power of 16 that is above them all.
  if (number == std::ldexp(1, kBitsOfDigit * kMaxPower)) number = std::nextafter(number, 0);
  return isNegative ? -number : number;
}

std::optional<std::uint64_t> makeHexadecimal(double number, unsigned size) {
  auto const fraction = static_cast<int>(fractionBits(size));
  double const magnitude = std::fabs(number);
  if (magnitude == 0) return 0;
  // The least power that is above the number.
  int power = static_cast<int>(std::floor(std::ilogb(magnitude) / double{kBitsOfDigit})) + 1;
  power = std::max(power, -kBias);
  std::uint64_t digits = roundedMultiple(magnitude, kBitsOfDigit * power - fraction);
  if (digits >> fraction != 0) {
    digits >>= kBitsOfDigit;
    ++power;
  }
  if (digits == 0) return 0;
  if (power > kMaxPower) return std::nullopt;
  std::uint64_t const sign = number < 0 ? 1 : 0;
  return (((sign << 7U) | static_cast<std::uint64_t>(power + kBias)) << fraction) | digits;
}

double shortestHexadecimal(std::uint64_t bits) {
  double const number = readHexadecimal(bits, kShortSize);
  std::optional<std::uint64_t> const normalised = makeHexadecimal(number, kShortSize);
  if (number == 0 || !normalised) return number;
  constexpr int kEnough = 9;  // digits for 24 bits
  for (int digits = 1; digits < kEnough; ++digits) {
    double const nearest = withDigits(number, digits);
    if (makeHexadecimal(nearest, kShortSize) == normalised) return nearest;
    // Below a power of 16 the numbers are closer than above it: a decimal above may
    // be read as this one where the nearest, below, is not.
    double const step = std::pow(10.0, std::floor(std::log10(std::fabs(number))) - digits + 1);
    double const other = withDigits(
        std::fabs(nearest) < std::fabs(number) ? nearest + std::copysign(step, number) : nearest,
        digits);
    if (makeHexadecimal(other, kShortSize) == normalised) return other;
  }
  return withDigits(number, kEnough);
}

}  // namespace fdmorph::values
