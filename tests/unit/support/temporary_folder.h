// Files for the length of a test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace fdmorph {

/// A new, empty folder that goes away with its content.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(TemporaryFolder const&) = delete;
  TemporaryFolder& operator=(TemporaryFolder const&) = delete;

  /// The absolute path of `name` in this folder.
  std::string path(std::string const& name) const { return (m_path / name).string(); }

  /// Writes a file and returns its absolute path.
  std::string write(std::string const& name, std::string_view text) const;

  /// The content of a file.
  std::string read(std::string const& name) const;

  bool has(std::string const& name) const { return std::filesystem::exists(m_path / name); }

 private:
  std::filesystem::path m_path;
};

/// A temporary folder that is the current directory as well.
class WorkingFolder : public TemporaryFolder {
 public:
  WorkingFolder() : m_before(std::filesystem::current_path()) {
    std::filesystem::current_path(path(""));
  }
  ~WorkingFolder() { std::filesystem::current_path(m_before); }

 private:
  std::filesystem::path m_before;
};

}  // namespace fdmorph
