// The command line: from arguments to settings.
#pragma once

#include <optional>
#include <string>

#include "driver/settings.h"

namespace fdmorph {

/// Opens the log if the command line asks for one. It must be in place before
/// anything else is printed, so the arguments are searched for it first.
void openRequestedLog(int argc, char** argv);

/// Scans the arguments into `settings`. Returns the exit status if the scan
/// ends the run; what there is to say has then been printed.
std::optional<int> scanArguments(int argc, char** argv, Settings& settings);

/// Reads the value of the option `name` at `index`: the rest of the argument,
/// or else the next argument, whatever it looks like. Returns the index of the
/// last argument consumed. Without a value, reports it and leaves `value` as
/// it was.
int ProcessCmdLineNameValue(int argc, char** argv, int index, char const* name, std::string& value);

}  // namespace fdmorph
