// The one reporter: every error and warning of a compilation passes through
// here, and it alone knows whether there was an error.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "compiler/diagnostic_codes.h"
#include "compiler/sources.h"

namespace fdmorph::compiler {

class Diagnostics {
 public:
  /// Reports beyond this number, of errors and of warnings, are only counted.
  static constexpr std::size_t kMost = 100;

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
