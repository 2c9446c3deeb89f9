// The symbols of a picture string and how often each is repeated.
#pragma once

#include "semantics/picture.h"

namespace fdmorph::compiler {

/// A symbol and its repetitions. CR and DB are 'C' and 'D', the currency sign is
/// '$' and the decimal point '.', whatever characters the program uses.
struct PictureRun {
  char symbol;
  std::uint64_t count;
};

/// What a picture string consists of.
struct PictureRuns {
  std::string text;  ///< with constants replaced by their values
  std::vector<PictureRun> runs;
  std::vector<std::string> errors;
  bool hasEmptyRun = false;  ///< a symbol is repeated zero times
};

/// Splits a picture string into runs of symbols. Stops at the first error.
[[nodiscard]] PictureRuns readPictureRuns(std::string_view text, PictureRules rules,
                                          ConstantLookup const& constant);

}  // namespace fdmorph::compiler
