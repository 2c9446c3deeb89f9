// The file operations of the runs.
#pragma once

#include <string>

namespace fdmorph {

/// Whether the file `name` must be left alone: false if it is absent (or cannot
/// be read) or the user agreed to overwrite it, true if it exists and the user
/// did not agree. With `prompt` the user is asked on the error stream, also
/// when there is a log; the end of the input counts as a no. An empty name is
/// reported and gives true.
[[nodiscard]] bool FileExists(std::string const& name, bool prompt);

/// Whether `name` is a symbolic link to a file that does not exist.
[[nodiscard]] bool isDanglingLink(std::string const& name);

/// Whether both names stand for one regular file, by whatever path or link.
[[nodiscard]] bool isSameFile(std::string const& left, std::string const& right);

/// Whether the output `name` is the file `input`, or the log, and so cannot be
/// written; it is reported then.
[[nodiscard]] bool isRefusedOutput(std::string const& name, std::string const& input);

/// Writes the lines of `source` to `target`, replacing what is there: each up
/// to its first NUL and with a line end. What follows the last line end is a
/// line as well, even an empty one. False, with a report, if either file does
/// not open or the copy is not complete.
[[nodiscard]] bool CopyFileToFile(std::string const& source, std::string const& target);

/// A name in the current directory, without an extension, such that no file
/// of that name with any of `extensions` exists. They are separated by blanks,
/// with or without leading dots.
[[nodiscard]] std::string GetTemporaryFilename(std::string const& extensions);

/// `name` for use on a command line: without its double quotes, and in double
/// quotes if it contains a blank.
[[nodiscard]] std::string ProcessSpaceyFilename(std::string const& name);

}  // namespace fdmorph
