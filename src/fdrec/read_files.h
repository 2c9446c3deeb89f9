// The files that a command has read.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

namespace fdmorph::fdrec {

/// The paths of the files that the result of a command depends on, for --depfile.
class ReadFiles {
 public:
  /// Adds a file by the path that it was opened with; not the standard input.
  void add(std::string const& path) {
    bool const isNew = !path.empty() && path != "-" && m_known.insert(path).second;
    if (isNew) m_paths.push_back(path);
  }

  /// Each path once, in the order of reading.
  [[nodiscard]] std::vector<std::string> const& paths() const { return m_paths; }

 private:
  std::vector<std::string> m_paths;
  std::unordered_set<std::string> m_known;
};

}  // namespace fdmorph::fdrec
