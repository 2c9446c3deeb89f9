// Files that several processes read, each a part.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "framing/framing_rules.h"
#include "framing/record_index.h"

namespace fdmorph::framing {

/// The K-th of N parts. The parts of a file have all its records, each once, in order.
/// There may be parts without records.
struct Part {
  std::uint64_t number = 1;  ///< 1 to count
  std::uint64_t count = 1;   ///< 1 to kMaxParts
};

inline constexpr std::uint64_t kMaxParts = 1'000'000;

/// Reads "K/N"; nothing if it is not of this form, or out of range.
[[nodiscard]] std::optional<Part> parsePart(std::string_view text);

/// A part of a `fixed` file. Their numbers of records differ by at most one. `end` is
/// the offset after the last byte of data, the trailer left out; the last part has what is
/// left of a partial record. The length of a record must not be 0.
[[nodiscard]] PartRange partBySize(Part part, FramingRules const& rules, std::uint64_t end);

/// A part of a file that has an index. Parts differ in size by about the step of the index.
[[nodiscard]] PartRange partByIndex(Part part, RecordIndex const& index);

}  // namespace fdmorph::framing
