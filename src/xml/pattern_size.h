// The size that a regular expression takes when its repetitions are written out,
// as the library does, and the length of what it matches.
#pragma once

#include <cstddef>
#include <string_view>

namespace fdmorph {

/// Numbers stop growing at kMaxPatternNumber.
struct PatternSize {
  std::size_t repetition = 1;  ///< the largest product of nested repetition counts
  std::size_t atoms = 0;       ///< single characters and sets, written out
  std::size_t depth = 0;       ///< levels of parentheses and of subtracted sets
  std::size_t longest = 0;     ///< characters of the longest match; the maximum if it is unbounded
};

inline constexpr std::size_t kMaxPatternNumber = std::size_t{1} << 62;

/// The size of `pattern`, a regular expression of XML Schema: Datatypes in
/// UTF-16. One that is not well-formed is measured as far as it makes sense;
/// the library refuses it.
[[nodiscard]] PatternSize patternSize(std::u16string_view pattern);

}  // namespace fdmorph
