// Integers of 1 to 8 bytes in both orders.
#pragma once

#include <cstdint>

namespace fdmorph::values {

[[nodiscard]] std::uint64_t loadInteger(unsigned char const* bytes, unsigned size,
                                        bool isBigEndian);

/// Stores the low bytes of `number`.
void storeInteger(std::uint64_t number, unsigned char* bytes, unsigned size, bool isBigEndian);

/// A number without its sign.
struct Magnitude {
  std::uint64_t value;
  bool isNegative;
};

/// Splits a number of `size` bytes, in two's complement if it is signed.
[[nodiscard]] inline Magnitude magnitudeOf(std::uint64_t number, unsigned size, bool isSigned) {
  if (!isSigned || (number >> (8 * size - 1)) == 0) return {number, false};
  std::uint64_t const mask = ~std::uint64_t{0} >> (64 - 8 * size);
  return {(~number + 1) & mask, true};
}

/// Whether a number of `size` bytes can be this one.
[[nodiscard]] inline bool isInRange(Magnitude number, unsigned size, bool isSigned) {
  std::uint64_t const all = ~std::uint64_t{0} >> (64 - 8 * size);
  if (!isSigned) return number.value <= all && !number.isNegative;
  return number.value <= (all >> 1U) + (number.isNegative ? 1U : 0U);
}

}  // namespace fdmorph::values
