#include "values/number_bytes.h"

#include <bit>
#include <cstring>

namespace fdmorph::values {
namespace {

template <typename Integer>
Integer swapped(Integer number) {
  if constexpr (sizeof(Integer) == 2) return __builtin_bswap16(number);
  if constexpr (sizeof(Integer) == 4) return __builtin_bswap32(number);
  if constexpr (sizeof(Integer) == 8) return __builtin_bswap64(number);
}

constexpr bool isHostOrder(bool isBigEndian) {
  return isBigEndian == (std::endian::native == std::endian::big);
}

template <typename Integer>
Integer loadWhole(unsigned char const* bytes, bool isBigEndian) {
  Integer number;
  std::memcpy(&number, bytes, sizeof number);
  return isHostOrder(isBigEndian) ? number : swapped(number);
}

template <typename Integer>
void storeWhole(Integer number, unsigned char* bytes, bool isBigEndian) {
  if (!isHostOrder(isBigEndian)) number = swapped(number);
  std::memcpy(bytes, &number, sizeof number);
}

}  // namespace

std::uint64_t loadInteger(unsigned char const* bytes, unsigned size, bool isBigEndian) {
  switch (size) {
    case 1:
      return bytes[0];
    case 2:
      return loadWhole<std::uint16_t>(bytes, isBigEndian);
    case 4:
      return loadWhole<std::uint32_t>(bytes, isBigEndian);
    case 8:
      return loadWhole<std::uint64_t>(bytes, isBigEndian);
    default:
      break;
  }
  std::uint64_t number = 0;
  for (unsigned i = 0; i < size; ++i) {
    number = (number << 8U) | bytes[isBigEndian ? i : size - 1 - i];
  }
  return number;
}

void storeInteger(std::uint64_t number, unsigned char* bytes, unsigned size, bool isBigEndian) {
  switch (size) {
    case 2:
      storeWhole(static_cast<std::uint16_t>(number), bytes, isBigEndian);
      return;
    case 4:
      storeWhole(static_cast<std::uint32_t>(number), bytes, isBigEndian);
      return;
    case 8:
      storeWhole(number, bytes, isBigEndian);
      return;
    default:
      break;
  }
  for (unsigned i = 0; i < size; ++i) {
    bytes[isBigEndian ? size - 1 - i : i] = static_cast<unsigned char>(number >> (8 * i));
  }
}

}  // namespace fdmorph::values
