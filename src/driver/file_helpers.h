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

}  // namespace fdmorph
