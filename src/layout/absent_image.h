// The bytes of a record with nothing in it, as the steps that write them.
//
// A large record is mostly tables, whose occurrences are all the same: the steps take
// little memory, whatever the length of the record.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace fdmorph::layout {

/// Offsets and sizes are in bytes. Later steps overwrite what earlier ones have written.
class AbsentImage {
 public:
  /// Adds bytes at an offset.
  void put(std::uint64_t offset, std::span<unsigned char const> bytes);

  /// Adds `size` times the same byte.
  void fill(std::uint64_t offset, std::uint64_t size, unsigned char byte);

  /// Repeats the `size` bytes at an offset, so that they are there `count` times.
  void repeat(std::uint64_t offset, std::uint64_t size, std::uint64_t count);

  /// Does all steps. What none of them writes stays as it is.
  void write(unsigned char* to) const;

 private:
  enum class Kind : std::uint8_t { put, fill, repeat };

  struct Step {
    Kind kind;
    unsigned char byte;    ///< fill
    std::uint64_t offset;  ///< in the record
    std::uint64_t size;
    std::uint64_t more;  ///< put: where they begin in m_bytes; repeat: the number of times
  };

  std::vector<Step> m_steps;
  std::vector<unsigned char> m_bytes;
};

}  // namespace fdmorph::layout
