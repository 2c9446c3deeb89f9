// The command line: from arguments to settings.
#pragma once

#include <optional>
#include <string>

#include "driver/settings.h"

namespace fdmorph {

/// The outcome of a scan.
struct ScannedArguments {
  Settings settings;
  std::optional<int> status;  ///< exit status, if the scan ends the run
};

/// Opens the log if the command line asks for one. It must be in place before
/// anything else is printed, so the arguments are searched for it first. False,
/// with a report on the console, if an argument names the file that the log
/// would replace.
[[nodiscard]] bool openRequestedLog(int argc, char** argv);

/// Scans the arguments. If that ends the run, everything that is to be said
/// has been printed.
[[nodiscard]] ScannedArguments scanArguments(int argc, char** argv);

/// Reads the value of the option `name` at `index`: the rest of the argument,
/// or else the next argument, whatever it looks like. Returns the index of the
/// last argument consumed. Without a value, reports it and leaves `value` as
/// it was.
[[nodiscard]] int ProcessCmdLineNameValue(int argc, char** argv, int index, char const* name,
                                          std::string& value);

/// Prints the usage text on the standard output stream.
void printUsage();

}  // namespace fdmorph
