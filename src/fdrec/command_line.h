// The command line of fdrec.
#pragma once

namespace fdmorph::fdrec {

/// Runs the command that the arguments name; they are those of main. Returns the
/// exit status.
[[nodiscard]] int runProgram(int count, char** arguments);

}  // namespace fdmorph::fdrec
