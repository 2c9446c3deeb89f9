// Reports of the parser front end, as values that can be kept and repeated.
#pragma once

#include <string>

namespace fdmorph {

/// One printed report.
struct ParserReport {
  enum class Kind { warning, error, uncounted };

  Kind kind;
  std::string line;  ///< as it stands on the error stream, without the line end
};

/// Prints `report` on the error stream and counts it by its kind. It goes past
/// the counting inserter, which would count it a second time.
void printReport(ParserReport const& report);

/// True while nothing, error or warning, has been counted in the process.
bool nothingCounted();

}  // namespace fdmorph
