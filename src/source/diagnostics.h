// The reporter of a compilation. All errors and warnings pass through it, and
// it alone decides whether the compilation has failed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "source/source_files.h"

namespace fdmorph::compiler {

/// What a diagnostic is about. Its name in brackets ends the first line of the
/// message; the man page explains it.
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
  xmlClause,
  size,
  environment,
  noData,
  choice,
  layout,
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
  prefix,
  copyPassedOver,
  lostRecords,
  lostConditions,
  lostRedefinitions,
  longNumber,
  xmlName,
  plainName,
  plainArea,
  emptyItem,
  complexTable,
  nativeSize,
  // Notes.
  viewLeftOut,
  format,
};

enum class Severity : std::uint8_t { note, warning, error };

inline constexpr std::size_t kCodeCount = static_cast<std::size_t>(Code::format) + 1;

struct CodeEntry {
  Code code;
  std::string_view name;
  Severity severity;
};

CodeEntry const& entryOf(Code code);

/// All codes, in the order of the enumeration.
std::span<CodeEntry const> allCodes();

class Diagnostics {
 public:
  /// The number of errors, of warnings and of notes that are printed. More of them
  /// are only counted.
  static constexpr std::size_t kMaxReports = 100;

  /// `sources` must outlive this object.
  explicit Diagnostics(Sources const& sources) : m_sources(sources) {}

  /// Records an error or a warning, depending on the code. `text` is lower
  /// case, has no full stop, and says what was expected and what was found. A
  /// diagnostic without a known place is about the command line or a file.
  void report(Code code, Place place, std::string text);

  /// The sources that places are located in.
  Sources const& sources() const { return m_sources; }

  /// The number of reports with this code.
  std::size_t countOf(Code code) const { return m_counts[static_cast<std::size_t>(code)]; }
  /// The place of the last of them; unknown if there is none.
  Place lastOf(Code code) const { return m_places[static_cast<std::size_t>(code)]; }

  std::size_t countOf(Severity severity) const {
    return m_severities[static_cast<std::size_t>(severity)];
  }
  bool hasErrors() const { return countOf(Severity::error) != 0; }

  struct Report {
    Code code;
    Place place;
    std::string text;
  };

  /// All reports that are kept, in the order of the source.
  [[nodiscard]] std::vector<Report const*> inSourceOrder() const;

 private:
  Sources const& m_sources;
  std::vector<Report> m_reports;
  std::array<std::size_t, kCodeCount> m_counts{};
  std::array<Place, kCodeCount> m_places{};
  std::array<std::size_t, 3> m_severities{};
};

/// `text` as a terminal can show it, in valid UTF-8: a tab is one blank, and each
/// other control character is a question mark, and so is each byte that belongs to
/// no character. Line feeds are control characters here.
std::string printable(std::string_view text);

/// Text of the source in apostrophes, for a message. Cut after 60 characters,
/// and made printable.
std::string quoted(std::string_view text);

}  // namespace fdmorph::compiler
