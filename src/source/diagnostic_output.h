// How diagnostics look.
#pragma once

#include <string>

#include "source/diagnostics.h"

namespace fdmorph::compiler {

enum class DiagnosticStyle {
  plain,
  colored,    ///< plain, with colors for a terminal (ECMA-48)
  jsonLines,  ///< a JSON object on each line
};

/// All diagnostics in the order of the source. Each is a line
/// `FILE:LINE:COLUMN: error: TEXT [code]`, the source line, a caret, and a note
/// for each COPY statement that includes the text. Everything is printable,
/// whatever the source and the names of its files hold.
///
/// As JSON each is one object with the members file, line, column, end, severity,
/// code, message and copiedFrom. Columns count characters from 1; `end` is the
/// column after the word. copiedFrom is a list of the COPY statements, innermost
/// first, with file, line and column. A diagnostic without a place has no file,
/// line, column and end.
///
/// `program` begins the lines of diagnostics without a place.
[[nodiscard]] std::string printDiagnostics(Diagnostics const& diagnostics,
                                           DiagnosticStyle style = DiagnosticStyle::plain,
                                           std::string_view program = "zbc");

/// A line with the numbers of errors and warnings; empty if there are none.
[[nodiscard]] std::string printSummary(Diagnostics const& diagnostics,
                                       std::string_view program = "zbc");

/// Whether the error stream is a terminal that shows colors, and nothing in the
/// environment (NO_COLOR, TERM) is against them.
[[nodiscard]] bool isColorWanted();

}  // namespace fdmorph::compiler
