// The tables of the single-byte character sets that ICU knows. No other source
// includes ICU.
#pragma once

#include <array>
#include <string>

namespace fdmorph::charset {

/// The code points of the bytes of a single-byte character set; -1 for a byte
/// without one. A character has at most one byte.
using ByteTable = std::array<char32_t, 256>;

inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

enum class IcuOutcome {
  found,
  unknown,
  multiByte,
  utf8,  ///< a name of UTF-8
};

struct IcuTable {
  IcuOutcome outcome = IcuOutcome::unknown;
  ByteTable characters{};
};

/// The table of the converter with this name or alias, without its fallbacks: a
/// byte and a character belong together only if each converts to the other.
[[nodiscard]] IcuTable readIcuTable(std::string const& name);

}  // namespace fdmorph::charset
