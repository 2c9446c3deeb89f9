// Runs in one folder, one after another.
#pragma once

#include <string>

namespace fdmorph {

/// A lock on a folder against other runs, held until the destructor. The
/// constructor waits for it, as long as it takes, and prints one line when that
/// is longer than ten seconds. A folder that cannot be locked (it cannot be
/// read, or its file system has no locks) is used without a lock.
class FolderLock {
 public:
  /// `folder` ends with its slash; empty for the current one.
  explicit FolderLock(std::string const& folder);
  ~FolderLock();
  FolderLock(FolderLock const&) = delete;
  FolderLock& operator=(FolderLock const&) = delete;

 private:
  int m_folder;  // descriptor, below 0 without a lock
};

}  // namespace fdmorph
