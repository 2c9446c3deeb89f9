// A picture string as runs of symbols.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/picture.h"

namespace fdmorph::compiler {

/// A symbol and how often it stands there. CR and DB are 'C' and 'D', the
/// currency sign is '$' and the decimal point '.', whatever the program calls
/// them.
struct PictureRun {
  char symbol;
  std::uint64_t count;
};

struct PictureRuns {
  std::string text;  ///< with constants resolved
  std::vector<PictureRun> runs;
  std::vector<std::string> errors;
};

PictureRuns readPictureRuns(std::string_view text, PictureRules rules,
                            ConstantLookup const& constant);

}  // namespace fdmorph::compiler
