// The declaration of the options that all commands take.
#pragma once

#include "fdrec/command.h"

namespace fdmorph::fdrec {

/// Their group in the help.
inline constexpr char kCommonOptionsGroup[] = "Common options";

/// Declares the options, which are stored in `options`. That must outlive `app`.
void declareCommonOptions(CLI::App& app, CommonOptions& options);

}  // namespace fdmorph::fdrec
