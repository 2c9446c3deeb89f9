// The source reader, the first pass: from the lines of a file to one running
// text without sequence numbers, comments and line structure.
//
// In the text a line feed stands between lines; lines that continue one
// another are joined, tabs are blanks, comments are gone, and of directives
// only those of conditional compilation are left, each a line of its own. A
// literal that is left open at the end of its line stays so: whether anybody
// minds is known only where the text is used. Every character of the text can
// be traced to its byte in the file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "source/diagnostics.h"

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

enum class Format {
  fixed,     ///< columns 1-6 sequence, 7 indicator, 8-72 text, the rest ignored
  variable,  ///< the same with text to the end of the line
  free,      ///< text from column 1
};

struct ReadingRules {
  Format format = Format::fixed;
  unsigned tabs = 8;  ///< distance of tab stops
};

struct SourceText {
  /// From `at` of the text on, characters stand at `offset` of the file on.
  struct Piece {
    std::uint32_t at;
    std::uint32_t offset;
  };

  /// From `offset` of the file on, lines are in this format.
  struct FormatChange {
    std::uint32_t offset;
    Format format;
  };

  /// What is wrong with a line, to be reported by whoever uses what follows
  /// `at` of the text.
  struct Fault {
    std::uint32_t at;
    std::uint32_t offset;  ///< in the file
    Code code;
    std::string text;
  };

  std::string text;
  std::vector<Piece> pieces;              ///< ascending; the first is at 0
  std::vector<FormatChange> formats;      ///< ascending; the first is at 0
  std::vector<Fault> faults;              ///< ascending
  std::vector<std::uint32_t> debugLines;  ///< where lines begin that count in debugging mode
  std::optional<std::uint32_t> letter;    ///< the byte in column 7 of the first line left out
  std::vector<std::uint32_t> directives;  ///< where those of conditional compilation begin

  /// The format in force at a byte of the file.
  Format formatAt(std::uint32_t offset) const;
};

/// Reads `content`.
SourceText readSource(std::string_view content, ReadingRules rules);

}  // namespace fdmorph::compiler
