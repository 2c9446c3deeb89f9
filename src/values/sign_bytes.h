// The bytes of digits and signs in zoned numbers.
#pragma once

#include <array>
#include <cstdint>

#include "values/conventions.h"

namespace fdmorph::values {

struct SignBytes {
  static constexpr std::uint8_t kNegative = 0x80;  ///< a flag beside the digit
  static constexpr std::uint8_t kNone = 0xFF;      ///< no digit with a sign

  /// The digit of a byte, as a character of ASCII; 0 if it is none.
  std::array<char, 256> digits{};
  /// The digit of a byte that also has the sign, 0 to 9, with its flag.
  std::array<std::uint8_t, 256> signedDigits{};

  std::array<std::uint8_t, 10> positive{};  ///< the bytes of digits with a sign
  std::array<std::uint8_t, 10> negative{};
  std::uint8_t plus = 0;  ///< of a separate sign
  std::uint8_t minus = 0;
  std::uint8_t blank = 0;
  std::uint8_t zero = 0;  ///< the digit without a sign
};

[[nodiscard]] SignBytes makeSignBytes(Conventions const& conventions);

}  // namespace fdmorph::values
