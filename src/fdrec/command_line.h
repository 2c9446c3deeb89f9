// The command line of fdrec.
#pragma once

#include <vector>

#include "fdrec/commands.h"

namespace fdmorph::fdrec {

/// Runs the command that the arguments name; they are those of main. Returns the
/// exit status. Also sees to it that the process ends with a message without memory,
/// on signals, and where input is nested too deeply.
[[nodiscard]] int runProgram(int count, char** arguments, std::vector<CommandRow> const& rows);

}  // namespace fdmorph::fdrec
