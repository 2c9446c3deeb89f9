// Hexadecimal floating point: a sign, a power of 16 with a bias of 64 in 7 bits, and
// a fraction of 6 or 14 hexadecimal digits.
#pragma once

#include <cstdint>
#include <optional>

namespace fdmorph::values {

/// The nearest double of a number of 4 or 8 bytes that has a nearest such number.
/// Those of 4 are exact.
[[nodiscard]] double readHexadecimal(std::uint64_t bits, unsigned size);

/// The bits of the nearest number, normalised, or with the least power of 16 below
/// 16^-65; nothing for numbers that are too large. Zero has no sign. `number` is
/// finite.
[[nodiscard]] std::optional<std::uint64_t> makeHexadecimal(double number, unsigned size);

/// The double whose shortest text is that of a short number: the text with the
/// fewest digits that is read as the same number.
[[nodiscard]] double shortestHexadecimal(std::uint64_t bits);

}  // namespace fdmorph::values
