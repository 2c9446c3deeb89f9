// Writing a file whole or not at all.
#pragma once

#include <string>

namespace fdmorph::compiler {

/// Puts a file in place. It is written under another name in the same folder
/// first; on failure nothing of it stays, and a file that was there does.
bool replaceFile(std::string const& path, std::string const& content);

}  // namespace fdmorph::compiler
