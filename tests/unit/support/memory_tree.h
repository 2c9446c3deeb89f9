// Source files in memory.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "source/source_files.h"

namespace fdmorph::compiler {

class MemoryTree : public FileTree {
 public:
  std::optional<std::string> read(std::string const& path) override {
    auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return found->second;
  }

  std::map<std::string, std::string> files;
};

}  // namespace fdmorph::compiler
