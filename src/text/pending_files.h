// Files that do not outlive a process that ends early.
#pragma once

#include <sys/stat.h>

#include <ctime>
#include <string>

namespace fdmorph {

/// What tells one version of a file from another.
struct FileVersion {
  bool exists = false;
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;  // bytes
  timespec written{};
  timespec changed{};

  bool operator==(FileVersion const& other) const;
};

/// The version of the file of this name now. Links are not followed. May be
/// called in a signal handler.
[[nodiscard]] FileVersion versionOf(char const* path);

/// The name of a file that this process, or a compiler that it runs, is about
/// to write. If the process ends early, the file is removed, unless it is still
/// the one that had the name when this object was made. The destructor leaves
/// the file alone.
class PendingFile {
 public:
  explicit PendingFile(std::string path);
  ~PendingFile();
  PendingFile(PendingFile const&) = delete;
  PendingFile& operator=(PendingFile const&) = delete;

  std::string const& path() const { return m_path; }

  /// Whether the file has been written since this object was made. May be
  /// called in a signal handler.
  [[nodiscard]] bool isNew() const;

  /// Removes the file if it is new. False if it is new and still there.
  bool remove() const;

 private:
  std::string m_path;
  FileVersion m_before;
};

/// Removes the new ones of all pending files. May be called in a signal
/// handler.
void removePendingFiles();

/// Leaves all pending files to the parent process. To be called in a child.
void forgetPendingFiles();

}  // namespace fdmorph
