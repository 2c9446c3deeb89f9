// How findings look.
#pragma once

#include <string>

#include "fit/finding.h"

namespace fdmorph::fit {

/// The files of one check.
struct CheckedFiles {
  std::string schema;
  std::string copybook;
  compiler::Sources const* sources = nullptr;  ///< of the copybook
};

/// Each finding on one line
///
///     FILE:LINE:COLUMN: error: PATH: TEXT (SCHEMA-FILE:LINE:COLUMN); schema: A; item: B [code]
///
/// and a last line with the numbers of errors, warnings and notes. Everything is
/// printable.
[[nodiscard]] std::string printText(Findings const& findings, CheckedFiles const& files);

/// The same as one JSON object, described in the manual page of fdrec.
[[nodiscard]] std::string printJson(Findings const& findings, CheckedFiles const& files);

}  // namespace fdmorph::fit
