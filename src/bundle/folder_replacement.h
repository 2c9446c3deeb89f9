// Folders that are replaced as a whole.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bundle/folder_content.h"

namespace fdmorph::bundle {

/// Puts the files and their manifest into a folder that is absent, empty or has an earlier
/// bundle, whose files go. They are written into a folder beside, which takes the name,
/// so that the name has all of the old files or all of the new ones. Where no folder can
/// be renamed (a mount point, the working directory), they are written into a folder
/// inside and moved up one by one.
///
/// Signals that end the process wait until this is done. The result is the reason of a
/// failure, in words, or nothing.
[[nodiscard]] std::optional<std::string> replaceFolder(std::string const& path,
                                                       std::vector<FolderFile> files);

}  // namespace fdmorph::bundle
