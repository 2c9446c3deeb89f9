// The one reporter: every error and warning of a compilation passes through
// here, and it alone knows whether there was an error.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "source/source_files.h"

namespace fdmorph::compiler {

enum class Code : std::uint8_t {
  // Errors.
  file,
  indicator,
  literal,
  copySyntax,
  copyMissing,
  copyCircle,
  copyLimit,
  replaceSyntax,
  execEnd,
  conditional,
  syntax,
  period,
  level,
  levelOrder,
  name,
  duplicateClause,
  clause,
  picture,
  pictureMissing,
  usage,
  redefines,
  renames,
  occurs,
  depending,
  value,
  constant,
  size,
  environment,
  // Warnings.
  directive,
  sourceDirective,
  leftOut,
  tag,
  copyPassed,
  duplicateName,
  valueSize,
  valueLost,
  redefinesTable,
  redefinesSize,
  binarySize,
  pictureWarning,
  clauseWarning,
};

inline constexpr std::size_t kCodeCount = static_cast<std::size_t>(Code::clauseWarning) + 1;

struct CodeEntry {
  Code code;
  std::string_view text;  ///< as it stands in brackets
  bool isError;
};

CodeEntry const& entryOf(Code code);

/// The whole table, for its documentation.
CodeEntry const* codesBegin();
CodeEntry const* codesEnd();

class Diagnostics {
 public:
  /// Reports beyond this number, of errors and of warnings, are only counted.
  static constexpr std::size_t kMaxReports = 100;

  explicit Diagnostics(Sources const& sources) : m_sources(sources) {}

  /// Notes an error or a warning, as the code is. A place that is not known
  /// belongs to the command line.
  void report(Code code, Place place, std::string text);

  /// What places are looked up in.
  Sources const& sources() const { return m_sources; }

  /// How often a code was reported.
  std::size_t countOf(Code code) const { return m_counts[static_cast<std::size_t>(code)]; }
  /// Where it was reported last.
  Place lastOf(Code code) const { return m_places[static_cast<std::size_t>(code)]; }

  bool hasErrors() const { return m_errors != 0; }
  std::size_t errorCount() const { return m_errors; }

  /// Everything noted, in the order of the source: a line
  /// `FILE:LINE:COLUMN: error: TEXT [code]`, the source line, a caret, and a
  /// note for each COPY statement that led there.
  std::string print() const;

 private:
  struct Report {
    Code code;
    Place place;
    std::string text;
  };

  void printReport(Report const& report, std::string& out) const;

  Sources const& m_sources;
  std::vector<Report> m_reports;
  std::array<std::size_t, kCodeCount> m_counts{};
  std::array<Place, kCodeCount> m_places{};
  std::size_t m_errors = 0;
  std::size_t m_warnings = 0;
};

/// Text of the source between apostrophes, for a message: cut when long, and
/// without control characters.
std::string quoted(std::string_view text);

}  // namespace fdmorph::compiler
