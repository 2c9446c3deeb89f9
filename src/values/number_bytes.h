// Integers of 1 to 8 bytes in both orders, and rows of decimal digits in integers.
//
// A row of at most 16 digits is a number with a digit in each nibble, the last one in
// the lowest. Such rows are checked, spread and shifted as a whole.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace fdmorph::values {

namespace detail {

template <typename Integer>
inline Integer swapped(Integer number) {
  if constexpr (sizeof(Integer) == 2) return __builtin_bswap16(number);
  if constexpr (sizeof(Integer) == 4) return __builtin_bswap32(number);
  if constexpr (sizeof(Integer) == 8) return __builtin_bswap64(number);
}

inline constexpr bool kIsHostBig = std::endian::native == std::endian::big;

template <typename Integer>
inline Integer loadWhole(unsigned char const* bytes, bool isBigEndian) {
  Integer number;
  std::memcpy(&number, bytes, sizeof number);
  return isBigEndian == kIsHostBig ? number : swapped(number);
}

template <typename Integer>
inline void storeWhole(std::uint64_t number, unsigned char* bytes, bool isBigEndian) {
  auto whole = static_cast<Integer>(number);
  if (isBigEndian != kIsHostBig) whole = swapped(whole);
  std::memcpy(bytes, &whole, sizeof whole);
}

}  // namespace detail

/// The number in 1 to 8 bytes. Sizes in between are two loads that overlap.
[[nodiscard]] inline std::uint64_t loadInteger(unsigned char const* bytes, unsigned size,
                                               bool isBigEndian) {
  if (size == 1) return bytes[0];
  unsigned const half = size >= 4 ? 4 : 2;
  if (size == 8) return detail::loadWhole<std::uint64_t>(bytes, isBigEndian);
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  if (half == 4) {
    first = detail::loadWhole<std::uint32_t>(bytes, isBigEndian);
    last = detail::loadWhole<std::uint32_t>(bytes + size - half, isBigEndian);
  } else {
    first = detail::loadWhole<std::uint16_t>(bytes, isBigEndian);
    last = detail::loadWhole<std::uint16_t>(bytes + size - half, isBigEndian);
  }
  unsigned const shift = 8 * (size - half);
  return isBigEndian ? (first << shift) | last : first | (last << shift);
}

/// Stores the low bytes of `number`.
inline void storeInteger(std::uint64_t number, unsigned char* bytes, unsigned size,
                         bool isBigEndian) {
  if (size == 1) {
    bytes[0] = static_cast<unsigned char>(number);
    return;
  }
  if (size == 8) {
    detail::storeWhole<std::uint64_t>(number, bytes, isBigEndian);
    return;
  }
  unsigned const half = size >= 4 ? 4 : 2;
  std::uint64_t const upper = number >> (8 * (size - half));
  std::uint64_t const first = isBigEndian ? upper : number;
  std::uint64_t const last = isBigEndian ? number : upper;
  if (half == 4) {
    detail::storeWhole<std::uint32_t>(first, bytes, isBigEndian);
    detail::storeWhole<std::uint32_t>(last, bytes + size - half, isBigEndian);
  } else {
    detail::storeWhole<std::uint16_t>(first, bytes, isBigEndian);
    detail::storeWhole<std::uint16_t>(last, bytes + size - half, isBigEndian);
  }
}

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

/// The most digits in a row.
inline constexpr unsigned kMaxRow = 16;

/// Whether the first 15 nibbles are digits.
[[nodiscard]] inline bool isDigitRow(std::uint64_t row) {
  constexpr std::uint64_t kSixes = 0x0666666666666666;
  constexpr std::uint64_t kCarries = 0x1111111111111110;
  return (((row + kSixes) ^ row ^ kSixes) & kCarries) == 0 && (row >> 60U) == 0;
}

/// The last 8 digits of a row, one a byte, the last one in the lowest.
[[nodiscard]] inline std::uint64_t spreadDigits(std::uint64_t row) {
  row &= 0xFFFFFFFF;
  row = (row | (row << 16U)) & 0x0000FFFF0000FFFF;
  row = (row | (row << 8U)) & 0x00FF00FF00FF00FF;
  return (row | (row << 4U)) & 0x0F0F0F0F0F0F0F0F;
}

/// The row of the low nibbles of 8 bytes.
[[nodiscard]] inline std::uint64_t gatherDigits(std::uint64_t bytes) {
  bytes &= 0x0F0F0F0F0F0F0F0F;
  bytes = (bytes | (bytes >> 4U)) & 0x00FF00FF00FF00FF;
  bytes = (bytes | (bytes >> 8U)) & 0x0000FFFF0000FFFF;
  return (bytes | (bytes >> 16U)) & 0xFFFFFFFF;
}

/// The number of the last 8 digits of a row: pairs, then fours, then all of them.
[[nodiscard]] inline std::uint64_t valueOfDigits(std::uint64_t row) {
  std::uint64_t digits = spreadDigits(row);
  digits = (digits & 0x00FF00FF00FF00FF) + ((digits >> 8U) & 0x00FF00FF00FF00FF) * 10;
  digits = (digits & 0x0000FFFF0000FFFF) + ((digits >> 16U) & 0x0000FFFF0000FFFF) * 100;
  return (digits & 0xFFFFFFFF) + (digits >> 32U) * 10000;
}

/// The number of a row.
[[nodiscard]] inline std::uint64_t valueOfRow(std::uint64_t row) {
  return valueOfDigits(row >> 32U) * 100'000'000 + valueOfDigits(row);
}

}  // namespace fdmorph::values
