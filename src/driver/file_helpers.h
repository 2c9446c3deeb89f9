// The driver's dealings with files.
#pragma once

#include <string>

namespace fdmorph {

/// Whether the file `name` is to be left alone: false if it is absent (or
/// can't be read) or the user agreed to overwrite it, true if it exists and
/// nobody agreed. With `prompt` the user is asked on the error stream, also
/// when there is a log; the end of the input counts as a no. An empty name is
/// reported and gives true.
bool FileExists(std::string const& name, bool prompt);

/// Writes the lines of `source` to `target`, replacing what is there: each up
/// to its first NUL and with a line end. What comes behind the last line end
/// is a line as well, an empty one too. False, with a report, if either file
/// doesn't open or the copy isn't complete.
bool CopyFileToFile(std::string const& source, std::string const& target);

/// A name in the current directory, without an extension, such that no file
/// of that name with any of `extensions` exists. They are separated by blanks,
/// with or without their dots.
std::string GetTemporaryFilename(std::string const& extensions);

/// `name` as it can stand on a command line: without double quotes of its own,
/// and in double quotes if it holds a blank.
std::string ProcessSpaceyFilename(std::string const& name);

}  // namespace fdmorph
