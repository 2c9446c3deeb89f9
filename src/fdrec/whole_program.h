// The program with all commands, apart from that with the commands on data.
#pragma once

#include <span>

namespace fdmorph::fdrec {

/// Whether a command line, with the name of the program first, is one of the commands on
/// data without --schema. The program with all commands runs any other, help included.
[[nodiscard]] bool isOnData(std::span<char* const> arguments);

/// Runs the program with all commands in place of this one. It is at a place that is
/// fixed relative to this one. Returns only if that fails: an exit status, after a
/// message.
[[nodiscard]] int runWholeProgram(char** arguments);

}  // namespace fdmorph::fdrec
