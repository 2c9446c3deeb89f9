#include "framing/parts.h"

#include <algorithm>
#include <charconv>

namespace fdmorph::framing {
namespace {

// The first `k` of `count` equal shares of a whole. The products stay below kMaxParts
// squared, and below the whole.
std::uint64_t shareOf(std::uint64_t whole, std::uint64_t k, std::uint64_t count) {
  return whole / count * k + whole % count * k / count;
}

// The first record after the first `k` of the parts.
RecordIndex::Entry borderAfter(std::uint64_t k, Part part, RecordIndex const& index) {
  RecordIndex::Entry const after{index.records + 1, index.end};
  if (index.entries.empty()) return after;
  std::uint64_t const begin = index.entries.front().offset;
  std::uint64_t const wanted = begin + shareOf(index.end - begin, k, part.count);
  auto const found =
      std::ranges::lower_bound(index.entries, wanted, {}, &RecordIndex::Entry::offset);
  return found == index.entries.end() ? after : *found;
}

}  // namespace

std::optional<Part> parsePart(std::string_view text) {
  char const* const end = text.data() + text.size();
  Part part;
  std::from_chars_result const number = std::from_chars(text.data(), end, part.number);
  if (number.ec != std::errc() || number.ptr == end || *number.ptr != '/') return std::nullopt;
  std::from_chars_result const count = std::from_chars(number.ptr + 1, end, part.count);
  if (count.ec != std::errc() || count.ptr != end) return std::nullopt;
  bool const isInRange = part.number >= 1 && part.number <= part.count && part.count <= kMaxParts;
  return isInRange ? std::optional(part) : std::nullopt;
}

PartRange partBySize(Part part, FramingRules const& rules, std::uint64_t end) {
  std::uint64_t const bytes = end - std::min(end, rules.header);
  std::uint64_t const records = bytes / rules.recordLength;
  std::uint64_t const before = shareOf(records, part.number - 1, part.count);
  std::uint64_t const after = shareOf(records, part.number, part.count);
  PartRange range{rules.header + before * rules.recordLength, std::nullopt, before + 1};
  if (part.number != part.count) range.end = rules.header + after * rules.recordLength;
  return range;
}

PartRange partByIndex(Part part, RecordIndex const& index) {
  RecordIndex::Entry const first = borderAfter(part.number - 1, part, index);
  PartRange range{first.offset, std::nullopt, first.number};
  if (part.number != part.count) range.end = borderAfter(part.number, part, index).offset;
  return range;
}

}  // namespace fdmorph::framing
