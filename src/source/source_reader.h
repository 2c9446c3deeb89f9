// The source reader, the first pass: turns the lines of a file into one text
// without sequence numbers, comments and line structure.
//
// Lines of the text are separated by line feeds. Continued lines are joined,
// tabs are expanded, comments are removed. Of the directives only those of
// conditional compilation remain, each on a line of its own. A literal that is
// not closed at the end of its line stays open: only the reader of the text
// knows whether that is an error. Each character of the text can be traced to
// its byte in the file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "source/diagnostics.h"

namespace fdmorph::compiler {

/// A reference format of COBOL 2002. Columns count bytes, with tabs expanded.
enum class Format {
  fixed,     ///< columns 1-6 sequence number, 7 indicator, 8-72 text, others ignored
  variable,  ///< as fixed, but the text extends to the end of the line
  free,      ///< text from column 1
};

struct ReadingRules {
  Format format = Format::fixed;
  unsigned tabs = 8;  ///< columns between tab stops
};

/// The text of a file.
struct SourceText {
  /// The characters of the text from `at` on are the bytes of the file from
  /// `offset` on, up to the next piece.
  struct Piece {
    std::uint32_t at;
    std::uint32_t offset;
  };

  /// The lines from `offset` of the file on are in this format.
  struct FormatChange {
    std::uint32_t offset;
    Format format;
  };

  /// An error or warning about a line that has no text. It is reported only if
  /// the text after `at` is used.
  struct Fault {
    std::uint32_t at;
    std::uint32_t offset;  ///< in the file
    Code code;
    std::string message;
  };

  std::string text;
  std::vector<Piece> pieces;              ///< ascending; the first is at 0
  std::vector<FormatChange> formats;      ///< ascending; the first is at 0
  std::vector<Fault> faults;              ///< ascending
  std::vector<std::uint32_t> debugLines;  ///< where debugging lines begin in the text
  std::vector<std::uint32_t> directives;  ///< where conditional directives begin in the text

  /// The offset of column 7 in the first line that a letter there excludes.
  std::optional<std::uint32_t> excludedLine;

  /// The format in force at an offset of the file.
  Format formatAt(std::uint32_t offset) const;
};

/// Whether a line has text after column 72, which fixed format ignores.
[[nodiscard]] bool hasTextPastMargin(std::string_view line, unsigned tabs);

/// Reads the lines of a file. `content` is at most 4 GB.
[[nodiscard]] SourceText readSource(std::string_view content, ReadingRules rules);

}  // namespace fdmorph::compiler
