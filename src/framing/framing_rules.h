// How records stand in a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace fdmorph::framing {

enum class Format : std::uint8_t {
  fixed,             ///< records of one length, nothing between them
  rdw,               ///< each record after a record descriptor word
  bdw,               ///< the same in blocks, each after a block descriptor word
  gnucobolVariable,  ///< each record after 2 bytes of length and 2 zero bytes
  lines,             ///< text up to a line feed
};

/// Bytes of a descriptor, of a record or a block.
inline constexpr std::size_t kDescriptorBytes = 4;

/// The largest number that a block descriptor holds. Its first bit marks extended
/// blocks.
inline constexpr std::uint32_t kMaxBlock = 32767;

inline constexpr std::uint32_t kDefaultBlock = 32760;

struct FramingRules {
  Format format = Format::fixed;
  bool isRdwExclusive = false;  ///< descriptors do not count their own 4 bytes
  bool isRdwLittle = false;     ///< the word of 4 bytes is little-endian, zero bytes first

  /// Bytes of a record in a `fixed` file.
  std::uint64_t recordLength = 0;

  /// Bytes of the longest record that the layout can have. What a line has beyond
  /// them and beyond kMinLineLimit is not kept.
  std::uint64_t maxRecordLength = 0;

  /// Bytes of a block that is written, its descriptor included, 1 to kMaxBlock. A
  /// record that needs more is alone in its block.
  std::uint32_t blockSize = kDefaultBlock;

  char blank = ' ';  ///< in the character set of the data

  std::uint64_t skip = 0;              ///< records to leave out at the beginning
  std::optional<std::uint64_t> limit;  ///< records to read after these; none: all
  std::uint64_t header = 0;            ///< bytes to leave out at the beginning
  std::uint64_t trailer = 0;           ///< bytes to leave out at the end
};

/// Bytes of a line that are kept at least, whatever the length of the record.
inline constexpr std::uint64_t kMinLineLimit = std::uint64_t{1} << 20;

/// A piece of a file that is read as if it were the whole. By default it is.
struct PartRange {
  /// Offset of the first record in the file; 0: after the header.
  std::uint64_t begin = 0;

  /// Offset after the last record; none: the end of the data.
  std::optional<std::uint64_t> end;

  std::uint64_t firstNumber = 1;  ///< of the first record, in the whole file
};

}  // namespace fdmorph::framing
