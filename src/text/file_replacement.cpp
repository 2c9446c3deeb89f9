#include "text/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <utility>

#include "text/terminal.h"

namespace fdmorph {
namespace {

constexpr int kMaxTries = 100;
constexpr int kMaxLinks = 40;      // as many as the system follows
constexpr mode_t kMode = 0666;     // of a new file; the umask applies
constexpr mode_t kPrivate = 0600;  // until the new file has the mode of the old one
constexpr mode_t kModeBits = 07777;
constexpr int kCreateBeside = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
constexpr std::size_t kCopyBlock = std::size_t{64} << 10;

bool writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    ssize_t written = ::write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool copyAll(int from, int to) {
  std::array<char, kCopyBlock> block;
  while (true) {
    ssize_t got = ::read(from, block.data(), block.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got == 0;
    if (!writeAll(to, {block.data(), static_cast<std::size_t>(got)})) return false;
  }
}

// What a link in /proc shows is no name: the file behind it is open already.
bool isInProc(struct stat const& link) {
  struct stat proc {};
  return lstat("/proc", &proc) == 0 && proc.st_dev == link.st_dev;
}

// The file that a name stands for in the end, whether it exists or not; nothing
// if a link does not lead to it by name.
std::optional<std::string> followLinks(std::string name) {
  for (int i = 0; i < kMaxLinks; ++i) {
    struct stat state {};
    if (lstat(name.c_str(), &state) != 0 || !S_ISLNK(state.st_mode)) return name;
    if (isInProc(state)) return std::nullopt;
    std::array<char, PATH_MAX> text;
    ssize_t length = readlink(name.c_str(), text.data(), text.size());
    if (length < 0 || static_cast<std::size_t>(length) == text.size()) return std::nullopt;
    std::string_view link(text.data(), static_cast<std::size_t>(length));
    name = (link.starts_with('/') ? std::string() : folderOf(name)) + std::string(link);
  }
  return std::nullopt;
}

// Errors of a folder that takes no further file, as opposed to one that has no
// room for it.
bool isForbidden(int fault) {
  return fault == EACCES || fault == EPERM || fault == EROFS || fault == ENAMETOOLONG;
}

// Errors of a folder in which the file cannot get another inode: it belongs to
// somebody else and the folder is sticky, or it is a mount point.
bool isPinned(int fault) {
  return fault == EACCES || fault == EPERM || fault == EBUSY || fault == EXDEV;
}

}  // namespace

std::string folderOf(std::string_view path) {
  std::size_t slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? std::string_view()
                                                     : path.substr(0, slash + 1));
}

FileReplacement::~FileReplacement() {
  discard();
}

// The name is judged by opening it, as if it were written directly.
FileReplacement::Start FileReplacement::begin(std::string const& name) {
  struct stat old {};
  bool exists = ::stat(name.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return Start::refused;
  std::optional<std::string> target = followLinks(name);
  if (!target || target->ends_with('/') || (exists && !S_ISREG(old.st_mode))) {
    return openDirectly(name);
  }
  m_target = *target;
  if (!exists) {
    // No room for a second file is no room for the only one.
    return openBeside(kMode) == Start::opened ? Start::opened : Start::refused;
  }
  int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kMode);
  if (file < 0) return Start::refused;
  ::close(file);
  Start start = openBeside(kPrivate);
  if (!m_beside || takeOver(old)) return start;
  discard();
  return openDirectly(name);
}

FileReplacement::Start FileReplacement::openDirectly(std::string const& name) {
  m_file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode);
  if (m_file < 0) return Start::refused;
  if (isatty(m_file) == 1 || isPipe(m_file)) m_suspension.emplace(statusLine);
  return Start::opened;
}

FileReplacement::Start FileReplacement::openBeside(mode_t mode) {
  for (int i = 0; i < kMaxTries; ++i) {
    // Not made from the file's name, which may have the maximum length.
    m_beside.emplace(folderOf(m_target) + ".fdmorph-" + std::to_string(getpid()) + "-" +
                     std::to_string(i) + ".tmp");
    m_file = ::open(m_beside->path().c_str(), kCreateBeside, mode);
    if (m_file >= 0) return Start::opened;
    if (errno != EEXIST) break;
  }
  int fault = errno;
  m_beside.reset();
  errno = fault;
  return isForbidden(fault) ? openDirectly(m_target) : Start::failed;
}

// Gives the new file the mode of the old one. Only root may give a file away,
// and others only to a group of theirs.
bool FileReplacement::takeOver(struct stat const& old) const {
  constexpr uid_t kSameOwner = static_cast<uid_t>(-1);
  [[maybe_unused]] bool isGiven =
      fchown(m_file, old.st_uid, old.st_gid) == 0 || fchown(m_file, kSameOwner, old.st_gid) == 0;
  return fchmod(m_file, old.st_mode & kModeBits) == 0;
}

bool FileReplacement::write(std::string_view text) {
  return writeAll(m_file, text);
}

bool FileReplacement::commit() {
  bool isClosed = close();
  if (!m_beside || !isClosed) return isClosed;
  char const* beside = m_beside->path().c_str();
  if (std::rename(beside, m_target.c_str()) == 0) {
    m_beside.reset();
    return true;
  }
  if (!isPinned(errno) || !copyOver()) return false;
  discard();
  return true;
}

bool FileReplacement::close() {
  m_suspension.reset();
  int file = std::exchange(m_file, -1);
  return file >= 0 && ::close(file) == 0;
}

void FileReplacement::discard() {
  if (m_file >= 0) close();
  if (m_beside) m_beside->remove();
  m_beside.reset();
}

// For a file that may be written, but not renamed.
bool FileReplacement::copyOver() const {
  int from = ::open(m_beside->path().c_str(), O_RDONLY | O_CLOEXEC);
  if (from < 0) return false;
  int to = ::open(m_target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  bool isCopied = to >= 0 && copyAll(from, to);
  if (to >= 0) isCopied = ::close(to) == 0 && isCopied;
  ::close(from);
  return isCopied;
}

std::optional<std::string> replaceFile(std::string const& path, std::string const& content) {
  FileReplacement file;
  bool isReplaced =
      file.begin(path) == FileReplacement::Start::opened && file.write(content) && file.commit();
  if (isReplaced) return std::nullopt;
  return std::strerror(errno);
}

}  // namespace fdmorph
