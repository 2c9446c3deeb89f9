// Files that are replaced as a whole.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

#include "text/pending_files.h"
#include "text/status_line.h"

namespace fdmorph {

/// A new version of a file. A regular file is written under another name in its
/// folder and renamed at the end, so that the name has the old file or the new
/// one, never a part of it. A symbolic link stays, and the file that it names is
/// replaced. The new file has the mode of the old one, and its owner and group
/// as far as the system allows.
///
/// Other files (devices, FIFOs, names in /proc such as /dev/stdout) are written
/// directly. So is a file that may be written in a folder that may not, because
/// there is no other way.
///
/// Members report a failure in errno.
class FileReplacement {
 public:
  enum class Start {
    opened,
    refused,  ///< the name cannot be opened for writing
    failed,   ///< it can, but there is no room for a second file
  };

  FileReplacement() = default;
  ~FileReplacement();
  FileReplacement(FileReplacement const&) = delete;
  FileReplacement& operator=(FileReplacement const&) = delete;

  /// Opens a new, empty version of the file `name`, which is not empty. To be
  /// called once.
  [[nodiscard]] Start begin(std::string const& name);

  /// Appends to the file. False if not all of it could be written.
  [[nodiscard]] bool write(std::string_view text);

  /// Puts the new version in place. False if the file is as it was before.
  /// Without this call the destructor discards the new version.
  [[nodiscard]] bool commit();

 private:
  Start openDirectly(std::string const& name);
  Start openBeside(mode_t mode);
  bool takeOver(struct stat const& old) const;
  bool close();
  void discard();
  bool copyOver() const;

  int m_file = -1;
  std::string m_target;                                // the file itself, not a link to it
  std::optional<PendingFile> m_beside;                 // none: written directly
  std::optional<StatusLine::Suspension> m_suspension;  // the text may reach a terminal
};

/// The folder of a path with its slash; empty for the current one.
std::string folderOf(std::string_view path);

/// Replaces a file, or creates it. On failure an earlier file of the name stays.
/// The result is the reason of a failure, in words, or nothing.
[[nodiscard]] std::optional<std::string> replaceFile(std::string const& path,
                                                     std::string const& content);

}  // namespace fdmorph
