// Paths, as the XML library resolves locations.
#pragma once

#include <string>

namespace fdmorph {

/// True if `path` is relative.
[[nodiscard]] bool isRelativePath(std::string const& path);

/// The absolute form of `path`. If the file does not exist, the working
/// directory and `path`.
std::string getFullPath(std::string const& path);

/// `relative` resolved against the folder of the file `base`. An empty base,
/// or one without a folder, gives `relative` unchanged.
std::string weavePaths(std::string const& base, std::string const& relative);

}  // namespace fdmorph
