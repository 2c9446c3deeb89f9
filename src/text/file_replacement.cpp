// Apart from OutputFile, so that a program that only replaces files does not
// link the console.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "text/output_file.h"

namespace fdmorph {
namespace {

constexpr int kMaxTries = 100;
constexpr mode_t kMode = 0666;  // the umask applies

bool writeAll(int file, std::string const& content) {
  std::size_t done = 0;
  while (done < content.size()) {
    ssize_t written = ::write(file, content.data() + done, content.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

int createBeside(std::string const& path, std::string& name) {
  for (int i = 0; i < kMaxTries; ++i) {
    // Not made from the file's name, which may have the maximum length.
    name = folderOf(path) + ".zbc-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp";
    int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

}  // namespace

std::string folderOf(std::string_view path) {
  std::size_t slash = path.rfind('/');
  return std::string(slash == std::string_view::npos ? std::string_view()
                                                     : path.substr(0, slash + 1));
}

std::optional<std::string> replaceFile(std::string const& path, std::string const& content) {
  std::string name;
  int file = createBeside(path, name);
  if (file < 0) return std::strerror(errno);
  bool isWritten = writeAll(file, content);
  int fault = errno;
  bool isClosed = ::close(file) == 0;
  if (isWritten && !isClosed) fault = errno;
  bool isInPlace = isWritten && isClosed && std::rename(name.c_str(), path.c_str()) == 0;
  if (isWritten && isClosed && !isInPlace) fault = errno;
  if (isInPlace) return std::nullopt;
  ::unlink(name.c_str());
  return std::strerror(fault);
}

}  // namespace fdmorph
