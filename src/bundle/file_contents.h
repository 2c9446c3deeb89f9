// The bytes of files that are read more than once.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "source/source_files.h"

namespace fdmorph::bundle {

/// Keeps what it has read. Only regular files can be read.
class FileContents {
 public:
  /// The bytes of a file, which live as long as this object; null if it cannot be read.
  [[nodiscard]] std::string const* at(std::string const& path) {
    auto [entry, isNew] = m_contents.try_emplace(path);
    // That name alone is the standard input.
    if (isNew) entry->second = m_tree.read(path == compiler::kStandardInput ? "./-" : path);
    return entry->second ? &*entry->second : nullptr;
  }

 private:
  compiler::DiskTree m_tree;
  std::unordered_map<std::string, std::optional<std::string>> m_contents;
};

}  // namespace fdmorph::bundle
