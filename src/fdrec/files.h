// The input and output files of a command.
#pragma once

#include <optional>
#include <string>

namespace fdmorph::fdrec {

/// Prints "fdrec: error: TEXT [code]" to the standard error stream.
void printError(std::string const& text, char const* code);

/// Prints "fdrec: warning: TEXT [code]" to the standard error stream.
void printWarning(std::string const& text, char const* code);

/// Writes `text` to the file `path`, which is replaced as a whole, or to the
/// standard output if `path` is empty or "-". Reports a failure. The result is an
/// exit status.
[[nodiscard]] int writeOutput(std::string const& path, std::string const& text);

/// Reads a file, or the standard input as "-". Reports a failure and returns nothing.
[[nodiscard]] std::optional<std::string> readInput(std::string const& path);

/// Reports an output that would replace an input. The result is an exit status.
[[nodiscard]] int refuseOutputOver(std::string const& output, std::string const& input);

/// Reports a copybook and data that are both the standard input; no name is that, too.
/// The result is an exit status.
[[nodiscard]] int refuseSharedInput(std::string const& copybook, std::string const& data);

/// Reports another output, if there is one, that goes where an output goes. A device
/// takes any number of them. The result is an exit status.
[[nodiscard]] int refuseSharedOutput(std::string const& output, std::string const& other);

}  // namespace fdmorph::fdrec
