// One line of a file with its columns: tabs are blanks here, and each column
// knows its byte.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::compiler {

class SourceLine {
 public:
  /// `line` begins at `offset` of the file. The line is looked at again with
  /// each call; views of an earlier one are gone.
  void set(std::string_view line, std::size_t offset, unsigned tabs);

  std::string_view text() const { return m_text; }
  std::size_t size() const { return m_text.size(); }
  char at(std::size_t column) const { return column < size() ? m_text[column] : ' '; }

  /// The byte of a column, counted from 0.
  std::uint32_t offsetOf(std::size_t column) const {
    if (!m_hasTabs) return static_cast<std::uint32_t>(m_offset + column);
    return column < m_offsets.size() ? m_offsets[column] : m_end;
  }

  /// Whether columns and bytes run in step.
  bool isPlain() const { return !m_hasTabs; }

 private:
  std::string_view m_text;
  std::size_t m_offset = 0;
  bool m_hasTabs = false;
  std::string m_expanded;
  std::vector<std::uint32_t> m_offsets;
  std::uint32_t m_end = 0;
};

}  // namespace fdmorph::compiler
