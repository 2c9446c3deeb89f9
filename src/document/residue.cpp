#include "document/residue.h"

#include <algorithm>
#include <charconv>

namespace fdmorph::document {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

// A run goes on over a few equal bytes: that is shorter than another line.
constexpr std::size_t kMaxGap = 4;

std::optional<std::uint64_t> takeNumber(std::string_view& text) {
  std::uint64_t number = 0;
  auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  return number;
}

bool takeText(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

std::optional<std::string> bytesOf(std::string_view digits) {
  if (digits.empty() || digits.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    std::size_t high = kDigits.find(digits[i]);
    std::size_t low = kDigits.find(digits[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    bytes += static_cast<char>(high * kDigits.size() + low);
  }
  return bytes;
}

}  // namespace

bool Residue::isWhole() const {
  if (!length) return false;
  if (*length == 0) return true;
  return runs.size() == 1 && runs.front().offset == 0 && runs.front().bytes.size() == *length;
}

Residue differenceOf(std::span<unsigned char const> stored, std::span<unsigned char const> made,
                     std::span<ByteRange const> kept) {
  Residue residue;
  if (stored.size() != made.size()) residue.length = stored.size();
  std::vector<ByteRange> ranges(kept.begin(), kept.end());
  std::ranges::sort(ranges, {}, &ByteRange::offset);
  auto range = ranges.begin();
  auto const differs = [&](std::size_t at) {
    while (range != ranges.end() && range->offset + range->size <= at) ++range;
    bool isKept = range != ranges.end() && range->offset <= at;
    return isKept || at >= made.size() || stored[at] != made[at];
  };
  std::size_t end = 0;  // after the last run
  for (std::size_t at = 0; at < stored.size(); ++at) {
    if (!differs(at)) continue;
    bool isNear = !residue.runs.empty() && at - end <= kMaxGap;
    if (!isNear) {
      residue.runs.push_back({at, {}});
      end = at;
    }
    residue.runs.back().bytes.append(reinterpret_cast<char const*>(stored.data()) + end,
                                     at + 1 - end);
    end = at + 1;
  }
  return residue;
}

std::string residueLines(std::uint64_t number, Residue const& residue) {
  std::string lines;
  if (residue.length) {
    lines += std::to_string(number) + " length " + std::to_string(*residue.length) + '\n';
  }
  for (Residue::Run const& run : residue.runs) {
    lines += std::to_string(number) + ' ' + std::to_string(run.offset) + ' ';
    for (char each : run.bytes) {
      auto byte = static_cast<unsigned char>(each);
      lines += kDigits[byte >> 4U];
      lines += kDigits[byte & 0xFU];
    }
    lines += '\n';
  }
  return lines;
}

std::optional<std::uint64_t> addResidueLine(std::string_view line, Residue& residue) {
  std::optional<std::uint64_t> number = takeNumber(line);
  if (!number || !takeText(line, " ")) return std::nullopt;
  if (takeText(line, "length ")) {
    std::optional<std::uint64_t> length = takeNumber(line);
    if (!length || !line.empty()) return std::nullopt;
    residue.length = length;
    return number;
  }
  std::optional<std::uint64_t> offset = takeNumber(line);
  if (!offset || !takeText(line, " ")) return std::nullopt;
  std::optional<std::string> bytes = bytesOf(line);
  if (!bytes) return std::nullopt;
  residue.runs.push_back({*offset, std::move(*bytes)});
  return number;
}

}  // namespace fdmorph::document
