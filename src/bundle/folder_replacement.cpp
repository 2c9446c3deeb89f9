#include "bundle/folder_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "text/early_end.h"
#include "text/file_replacement.h"

namespace fdmorph::bundle {
namespace {

namespace fs = std::filesystem;
using State = FolderContent::State;
using Reason = std::optional<std::string>;

constexpr int kMaxAttempts = 100;
constexpr mode_t kFolderMode = 0777;  // the umask applies
constexpr mode_t kModeBits = 07777;

std::string describe(int fault) {
  return std::error_code(fault, std::generic_category()).message();
}

/// A new folder, which goes with its files unless it is put in place.
class NewFolder {
 public:
  NewFolder() = default;
  ~NewFolder() {
    if (!m_path.empty()) remove();
  }
  NewFolder(NewFolder const&) = delete;
  NewFolder& operator=(NewFolder const&) = delete;

  // The result is 0 or an error of the system.
  int make(fs::path const& parent) {
    for (int i = 0; i < kMaxAttempts; ++i) {
      fs::path path =
          parent / (".fdrec-bundle-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp");
      if (mkdir(path.c_str(), kFolderMode) == 0) {
        m_path = std::move(path);
        return 0;
      }
      if (errno != EEXIST) break;
    }
    return errno;
  }

  Reason write(std::vector<FolderFile> const& files) {
    for (FolderFile const& each : files) {
      m_names.push_back(each.name);
      if (Reason why = replaceFile((m_path / each.name).string(), each.content)) {
        return "cannot write '" + each.name + "': " + *why;
      }
    }
    return std::nullopt;
  }

  [[nodiscard]] fs::path const& path() const { return m_path; }

  // From now on the path has a folder with these files, which are to be removed.
  void holds(std::vector<std::string> names) { m_names = std::move(names); }

  // From now on the path has nothing.
  void release() { m_path.clear(); }

  // False if something is left.
  bool remove() {
    for (std::string const& name : m_names) unlink((m_path / name).c_str());
    bool const isGone = rmdir(m_path.c_str()) == 0;
    release();
    return isGone;
  }

 private:
  fs::path m_path;
  std::vector<std::string> m_names;
};

// Errors that say that a folder cannot be made or renamed here, whatever is in it.
bool isFixed(int fault) {
  switch (fault) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case EXDEV:
    case EINVAL:
    case ENOSYS:
      return true;
    default:
      return false;
  }
}

/// One replacement of a folder by its real path.
class Replacement {
 public:
  Replacement(fs::path target, FolderContent old, std::vector<FolderFile> const& files)
      : m_target(std::move(target)), m_old(std::move(old)), m_files(files) {}

  Reason run() {
    bool const isFixedHere = m_old.state != State::absent && isAroundWorkingFolder();
    if (!isFixedHere) {
      int fault = 0;
      Reason why = replaceByName(fault);
      if (!why || m_old.state == State::absent || !isFixed(fault)) return why;
    }
    return replaceContent();
  }

 private:
  [[nodiscard]] bool isAroundWorkingFolder() const {
    std::error_code error;
    fs::path const working = fs::current_path(error);
    return std::mismatch(m_target.begin(), m_target.end(), working.begin(), working.end()).first ==
           m_target.end();
  }

  // `fault` is an error of the system that concerns the folder as a whole.
  Reason replaceByName(int& fault) const {
    NewFolder folder;
    fault = folder.make(m_target.parent_path());
    if (fault != 0) return "cannot make a folder beside it: " + describe(fault);
    if (Reason why = folder.write(m_files)) return why;
    char const* from = folder.path().c_str();
    if (m_old.state != State::absent) takeOver(from);
    if (m_old.state != State::earlier) {
      if (std::rename(from, m_target.c_str()) != 0) return describe(fault = errno);
      folder.release();
      return std::nullopt;
    }
    if (renameat2(AT_FDCWD, from, AT_FDCWD, m_target.c_str(), RENAME_EXCHANGE) != 0) {
      return describe(fault = errno);
    }
    folder.holds(m_old.files);
    fs::path const rest = folder.path();
    if (folder.remove()) return std::nullopt;
    return "it has been replaced, but not all of the old folder can be removed, which is '" +
           rest.string() + "' now";
  }

  // Gives the new folder the mode of the old one, and the owner as far as the system
  // allows.
  void takeOver(char const* folder) const {
    struct stat old {};
    if (stat(m_target.c_str(), &old) != 0) return;
    [[maybe_unused]] bool const isTaken =
        chown(folder, old.st_uid, old.st_gid) == 0 && chmod(folder, old.st_mode & kModeBits) == 0;
  }

  // The manifest comes last. Until then the folder is no bundle for another run.
  Reason replaceContent() const {
    NewFolder folder;
    if (int const fault = folder.make(m_target); fault != 0) {
      return "cannot make a folder in it: " + describe(fault);
    }
    if (Reason why = folder.write(m_files)) return why;
    for (FolderFile const& each : m_files) {
      if (std::rename((folder.path() / each.name).c_str(), (m_target / each.name).c_str()) != 0) {
        return "cannot replace '" + each.name + "': " + describe(errno);
      }
    }
    std::unordered_set<std::string_view> kept;
    for (FolderFile const& each : m_files) kept.insert(each.name);
    for (std::string const& name : m_old.files) {
      if (!kept.contains(name) && unlink((m_target / name).c_str()) != 0) {
        return "cannot remove '" + name + "': " + describe(errno);
      }
    }
    return std::nullopt;
  }

  fs::path m_target;
  FolderContent m_old;
  std::vector<FolderFile> const& m_files;  // the manifest last
};

}  // namespace

std::optional<std::string> replaceFolder(std::string const& path, std::vector<FolderFile> files) {
  SignalsBlocked const blocked;
  std::error_code error;
  fs::path target = fs::absolute(path, error).lexically_normal();
  if (!error && !target.has_filename()) target = target.parent_path();
  if (!error) fs::create_directories(target.parent_path(), error);
  if (!error) target = fs::weakly_canonical(target, error);
  if (error) return error.message();
  FolderContent old = lookAtFolder(target);
  if (old.state == State::other) return old.reason;
  std::string manifest = makeManifest(files);
  files.push_back({std::string(kManifestName), std::move(manifest)});
  return Replacement(std::move(target), std::move(old), files).run();
}

}  // namespace fdmorph::bundle
