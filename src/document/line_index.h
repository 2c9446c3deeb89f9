// Lines and columns of offsets in the input.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace fdmorph::document {

struct BytePlace {
  std::uint64_t line = 1;    ///< from 1
  std::uint64_t column = 1;  ///< from 1, in bytes
};

/// Knows where the lines begin that have been read and not passed yet. A line ends with
/// LF.
class LineIndex {
 public:
  enum class Unit : std::uint8_t { byte, utf16Big, utf16Little };

  /// Before the first add().
  void setUnit(Unit unit) { m_unit = unit; }

  /// The next bytes of the input.
  void add(std::string_view bytes);

  /// The place of an offset in the bytes added, not less than that of the call before.
  [[nodiscard]] BytePlace at(std::uint64_t offset) {
    while (m_current + 1 < m_starts.size() && m_starts[m_current + 1].offset <= offset) ++m_current;
    Start const& start = m_starts[m_current];
    return {start.line, offset < start.offset ? 1 : offset - start.offset + 1};
  }

 private:
  struct Start {
    std::uint64_t offset;
    std::uint64_t line;
  };
  void dropPassed();

  Unit m_unit = Unit::byte;
  std::vector<Start> m_starts{{0, 1}};
  std::size_t m_current = 0;
  std::uint64_t m_end = 0;  // of the bytes added
  char m_half = 0;          // the first byte of the UTF-16 unit that ends after m_end
};

}  // namespace fdmorph::document
