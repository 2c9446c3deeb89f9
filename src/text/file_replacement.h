// Writing a file whole or not at all.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace fdmorph {

/// The folder of a path with its slash; empty for the current one.
std::string folderOf(std::string_view path);

/// Puts a file in place. It is written under another name in the same folder
/// first; on failure nothing of it stays, and a file that was there does. The
/// result is the reason of a failure, in words, or nothing.
std::optional<std::string> replaceFile(std::string const& path, std::string const& content);

}  // namespace fdmorph
