// What each byte of a character set becomes in a text, and the way back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "values/conventions.h"

namespace fdmorph::values {

/// What a text is written for: the characters that are escaped.
enum class Target : std::uint8_t {
  xmlText,
  xmlAttribute,
  json,
  plain,  ///< nothing is escaped, and no character refused
};

inline constexpr std::size_t kTargets = 4;

constexpr bool isXml(Target target) {
  return target == Target::xmlText || target == Target::xmlAttribute;
}

/// The UTF-8 of one character, escaped. It is stored as a whole; its length is how
/// much of it counts.
struct CharacterText {
  static constexpr std::size_t kCapacity = 7;
  static constexpr std::uint8_t kRefused = 0x80;  ///< a bit of the length

  std::array<char, kCapacity> text{};
  std::uint8_t length = 0;
};
static_assert(sizeof(CharacterText) == 8);

/// The texts of all bytes of a character set for one target.
struct CharacterTable {
  std::array<CharacterText, 256> bytes{};       ///< by byte; in UTF-8 those below x'80'
  std::array<CharacterText, 128> ascii{};       ///< by code point
  std::array<unsigned char, 256> plainBytes{};  ///< of a byte that is one of ASCII; 0 otherwise
  CharacterText forbidden;                      ///< for what XML forbids, above ASCII
};

/// Makes the table of a target.
[[nodiscard]] CharacterTable makeCharacterTable(Conventions const& conventions, Target target);

/// The bytes of ASCII characters in a character set.
struct TextBytes {
  static constexpr std::uint16_t kOther = 0x100;  ///< a flag: the character has no such byte

  std::array<std::uint16_t, 256> ascii{};
};

[[nodiscard]] TextBytes makeTextBytes(Conventions const& conventions);

}  // namespace fdmorph::values
