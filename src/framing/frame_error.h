// What is wrong with the framing of a file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace fdmorph::framing {

enum class FrameFault : std::uint8_t {
  partialRecord,      ///< the file ends within a record
  partialDescriptor,  ///< the file ends within a descriptor
  tooSmall,           ///< a descriptor holds less than its own size
  notZero,            ///< bytes of a descriptor that must be zero are not
  extendedBlock,      ///< a block descriptor has its first bit set
  beyondEnd,          ///< a descriptor counts more than the file has
  beyondBlock,        ///< a record descriptor counts more than its block has
  blockRest,          ///< a block has bytes after its last record
  noLength,           ///< there are bytes, but records have none
  noTrailer,          ///< the file is shorter than its header and trailer
};

/// The fault in words, as the text of a message.
[[nodiscard]] std::string_view wordsOf(FrameFault fault);

/// Where and why a file cannot be read further.
struct FrameError {
  FrameFault fault = FrameFault::partialRecord;
  std::uint64_t offset = 0;  ///< in the file, of the descriptor or the partial record
  std::uint64_t number = 1;  ///< that the record would have, from 1

  /// The descriptor or the beginning of the partial record, at most kMaxFound bytes.
  std::string found;
  bool isFoundCut = false;  ///< there are more bytes than `found` has
};

inline constexpr std::size_t kMaxFound = 16;

}  // namespace fdmorph::framing
